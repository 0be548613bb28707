#pragma once

#include "BCFLibExport.h"

#include <QObject>
#include <QString>
#include <QVariant>

class QDomDocument;
class QIODevice;

namespace BCFLib {

/// The project that an archive belongs to, the optional file "project.bcfp" at its root.
///
/// Made by BCFModel::addProject() or by a load, and owned by the model.
class BCFLIB_EXPORT Project : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString _guid READ guid WRITE setGuid)
    Q_PROPERTY(QString _name READ name WRITE setName)
    Q_PROPERTY(QString _extensionSchema READ extensionSchema WRITE setExtensionSchema)

public:
    /// The project's identifier, which is the object name.
    QString guid() const { return objectName(); }
    void setGuid(const QString &guid) { setObjectName(guid); }

    /// The name of the project as people know it.
    QString name() const { return _name; }
    void setName(const QString &name) { _name = name; }

    /// Name of the schema that lists the project's own types and statuses. The schema itself is
    /// neither opened nor checked.
    QString extensionSchema() const { return _extensionSchema; }
    void setExtensionSchema(const QString &extensionSchema) { _extensionSchema = extensionSchema; }

    /// The project as a map with the keys "project_id", "name" and "extension_schema".
    QVariant toQVariant() const;

protected:
    /// For BCFModel::addProject() and the reader.
    Project(const QString &guid, QObject *parent);

    /// Reads a project file; null if it is not well-formed. The caller owns the result.
    static Project *Deserialize(QIODevice *device);
    /// Fills the record from a parsed file; what is missing there becomes empty.
    void readProject(QDomDocument &document);
    /// Writes the project file to an open device; always true. Closes the device where the file would be too
    /// large to be read back.
    bool serialize(QIODevice *device);
    /// Builds the elements of the file in an empty document.
    void writeProject(QDomDocument &document);

private:
    friend class BCFModel;

    void childEvent(QChildEvent *event) override;

    QString _name;
    QString _extensionSchema;
};

} // namespace BCFLib
