#pragma once

#include "BCFLibExport.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QVariant>

class QDomDocument;
class QDomElement;

namespace BCF_2_0_Lib {
class Viewpoint;
}

namespace BCFLib {

/// A reference from a viewpoint to one element of the building model.
///
/// Made by Components and by BCF_2_0_Lib::Viewpoint only, and owned by them. A component that a host
/// deletes leaves every list that it stood in.
class BCFLIB_EXPORT Component : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString _originatingSystem READ originatingSystem WRITE setOriginatingSystem)
    Q_PROPERTY(QString _authoringToolId READ authoringToolId WRITE setAuthoringToolId)

public:
    ~Component() override;

    /// The IfcGuid of the element, which is the object name: a UUID in the 22 characters in which IFC
    /// writes it. Any other text is kept as well.
    QString guid() const { return objectName(); }
    void setGuid(const QString &guid) { setObjectName(guid); }

    /// Name of the system that the element comes from.
    QString originatingSystem() const { return _originatingSystem; }
    void setOriginatingSystem(const QString &originatingSystem) { _originatingSystem = originatingSystem; }

    /// Identifier of the element in that system.
    QString authoringToolId() const { return _authoringToolId; }
    void setAuthoringToolId(const QString &authoringToolId) { _authoringToolId = authoringToolId; }

    /// IfcGuid of the project that the element belongs to.
    QString ifcProjectId() const { return _ifcProjectId; }
    void setIfcProjectId(const QString &ifcProjectId) { _ifcProjectId = ifcProjectId; }

    /// A map of what is not empty: "ifc_guid", "ifc_project", "originating_system", "authoring_tool_id".
    QVariant toQVariant() const;
    /// Takes over what @p variant holds. Guid and project stay if their key is missing; the other
    /// two become empty.
    void fromQVariant(const QVariant &variant);

protected:
    /// For the owner of the list that the component stands in.
    Component(const QString &guid, QObject *parent);

    /// Hands the event on to the owners that keep an index of guids.
    void childEvent(QChildEvent *event) override;

private:
    friend class Components;
    friend class BCF_2_0_Lib::Viewpoint;

    void write(QDomDocument &document, QDomElement &parent) const;

    QString _originatingSystem;
    QString _authoringToolId;
    QString _ifcProjectId;
    /// The set that it stands in; null in the list form.
    QList<Component *> *_set = nullptr;
};

} // namespace BCFLib
