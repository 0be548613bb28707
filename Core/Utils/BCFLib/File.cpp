#include "File.h"

#include "Tree/Owners.h"
#include "Variant/Maps.h"

namespace BCFLib {

File::File(QObject *parent)
    : QObject(parent)
{
}

void File::childEvent(QChildEvent *event)
{
    Owners::childEvent(this, event);
}

QVariant File::toQVariant() const
{
    QVariantMap map;
    Variants::insertIfNotEmpty(map, QStringLiteral("ifc_project"), _ifcProject);
    Variants::insertIfNotEmpty(map, QStringLiteral("ifc_spatial_structure_element"),
                               _ifcSpatialStructureElement);
    map.insert(QStringLiteral("is_external"), _isExternal);
    Variants::insertIfNotEmpty(map, QStringLiteral("file_name"), _filename);
    if (_date.isValid()) {
        map.insert(QStringLiteral("date"), Variants::fromDate(_date));
    }
    Variants::insertIfNotEmpty(map, QStringLiteral("reference"), _reference);
    return map;
}

void File::fromQVariant(const QVariant &variant)
{
    const QVariantMap map = variant.toMap();
    _ifcProject = map.value(QStringLiteral("ifc_project")).toString();
    _ifcSpatialStructureElement = map.value(QStringLiteral("ifc_spatial_structure_element")).toString();
    _isExternal = map.value(QStringLiteral("is_external"), true).toBool();
    _filename = map.value(QStringLiteral("file_name")).toString();
    _date = Variants::toDate(map.value(QStringLiteral("date")));
    _reference = map.value(QStringLiteral("reference")).toString();
}

} // namespace BCFLib
