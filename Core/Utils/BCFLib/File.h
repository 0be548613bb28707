#pragma once

#include "BCFLibExport.h"

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QVariant>

namespace BCFLib {

/// A model file that a topic refers to, from the header of its markup file.
///
/// Made by Topic::addFile() or by a load; owned by its topic. It has no guid.
///
/// What filename() means depends on isExternal(). For an external file it is free text. For a file
/// that travels inside the archive it is, in memory, the path of a real file on disk: after a load
/// the copy in the application's cache folder, for a file that a host adds the path from which a
/// save takes the content.
class BCFLIB_EXPORT File : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString _ifcProject READ ifcProject WRITE setIfcProject)
    Q_PROPERTY(QString _ifcSpatialStructureElement READ ifcSpatialStructureElement WRITE
                   setIfcSpatialStructureElement)
    Q_PROPERTY(bool _isExternal READ isExternal WRITE setIsExternal)
    Q_PROPERTY(QString _filename READ filename WRITE setFilename)
    Q_PROPERTY(QDateTime _date READ date WRITE setDate)
    Q_PROPERTY(QString _reference READ reference WRITE setReference)

public:
    /// IfcGuid of the IfcProject in that file.
    QString ifcProject() const { return _ifcProject; }
    void setIfcProject(const QString &ifcProject) { _ifcProject = ifcProject; }

    /// IfcGuid of an IfcSpatialStructureElement in that file, such as a building storey.
    QString ifcSpatialStructureElement() const { return _ifcSpatialStructureElement; }
    void setIfcSpatialStructureElement(const QString &ifcSpatialStructureElement)
    {
        _ifcSpatialStructureElement = ifcSpatialStructureElement;
    }

    /// Whether the file lies outside the archive; true until it is set otherwise.
    bool isExternal() const { return _isExternal; }
    void setIsExternal(bool isExternal) { _isExternal = isExternal; }

    /// See the class.
    QString filename() const { return _filename; }
    void setFilename(const QString &filename) { _filename = filename; }

    /// Date of the file, in the time zone of the text that it was read from; invalid means none.
    QDateTime date() const { return _date; }
    void setDate(const QDateTime &date) { _date = date; }

    /// Free reference text, never interpreted.
    QString reference() const { return _reference; }
    void setReference(const QString &reference) { _reference = reference; }

    /// A map with "is_external" and what else is not empty: "ifc_project",
    /// "ifc_spatial_structure_element", "file_name", "date" and "reference".
    QVariant toQVariant() const;
    /// Overwrites every field; a missing key gives the field's default.
    void fromQVariant(const QVariant &variant);

protected:
    /// For Topic::addFile().
    explicit File(QObject *parent);

private:
    friend class Topic;

    void childEvent(QChildEvent *event) override;

    QString _ifcProject;
    QString _ifcSpatialStructureElement;
    bool _isExternal = true;
    QString _filename;
    QDateTime _date;
    QString _reference;
};

} // namespace BCFLib
