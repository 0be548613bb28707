#include "Project.h"

#include "Tree/Owners.h"
#include "Xml/Elements.h"
#include "Xml/Printer.h"
#include "Xml/Reader.h"

#include <QDomDocument>
#include <QVariantMap>
#include <memory>

namespace BCFLib {

Project::Project(const QString &guid, QObject *parent)
    : QObject(parent)
{
    setObjectName(guid);
}

void Project::childEvent(QChildEvent *event)
{
    Owners::childEvent(this, event);
}

QVariant Project::toQVariant() const
{
    QVariantMap map;
    map.insert(QStringLiteral("project_id"), guid());
    map.insert(QStringLiteral("name"), _name);
    map.insert(QStringLiteral("extension_schema"), _extensionSchema);
    return map;
}

Project *Project::Deserialize(QIODevice *device)
{
    QDomDocument document;
    if (device == nullptr || !Xml::readDocument(device, &document)) {
        return nullptr;
    }
    std::unique_ptr<Project> project(new Project(QString(), nullptr));
    project->readProject(document);
    return project.release();
}

bool Project::serialize(QIODevice *device)
{
    QDomDocument document;
    writeProject(document);
    Xml::Printer(device).finish(document);
    return true;
}

void Project::readProject(QDomDocument &document)
{
    const QDomElement extension = document.firstChildElement(QStringLiteral("ProjectExtension"));
    const QDomElement project = extension.firstChildElement(QStringLiteral("Project"));
    if (!project.isNull()) {
        setGuid(Xml::attribute(project, QStringLiteral("ProjectId")));
        _name = Xml::childText(project, QStringLiteral("Name"));
    }
    _extensionSchema = Xml::childText(extension, QStringLiteral("ExtensionSchema"));
}

void Project::writeProject(QDomDocument &document)
{
    QDomElement extension = Xml::appendElement(document, document, QStringLiteral("ProjectExtension"));
    QDomElement project = Xml::appendElement(document, extension, QStringLiteral("Project"));
    Xml::setAttribute(project, QStringLiteral("ProjectId"), guid());
    Xml::appendText(document, project, QStringLiteral("Name"), _name);
    Xml::appendText(document, extension, QStringLiteral("ExtensionSchema"), _extensionSchema);
}

} // namespace BCFLib
