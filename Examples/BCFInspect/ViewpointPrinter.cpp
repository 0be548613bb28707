#include "ViewpointPrinter.h"

#include "ArchiveCheck.h"
#include "Report.h"

#include <Core/Utils/BCFLib/BCF_2_0_Component.h>
#include <Core/Utils/BCFLib/BCF_2_0_Viewpoint.h>
#include <Core/Utils/BCFLib/Components.h>

#include <QLocale>
#include <QStringList>

#include <cmath>

namespace {

constexpr int perspectiveBit = 1;
constexpr int orthogonalBit = 2;

/// As many digits as tell the number from its neighbours: models stand in coordinates of the country. An
/// exponent only where the zeros would be too many to count.
QString numberText(double number)
{
    const double size = std::abs(number);
    const bool isPlain = number == 0.0 || (size >= 1e-9 && size < 1e15);
    return QString::number(number, isPlain ? 'f' : 'g', QLocale::FloatingPointShortest);
}

QString pointText(const osg::Vec3d &point)
{
    return QStringLiteral("(%1, %2, %3)")
        .arg(numberText(point.x()), numberText(point.y()), numberText(point.z()));
}

/// Both kinds of camera have the same three vectors.
template<typename Camera>
QString cameraText(const Camera &camera, const QString &numberName, double number)
{
    return QStringLiteral("at %1, looking along %2, up %3, %4 %5")
        .arg(pointText(camera.cameraViewPoint), pointText(camera.cameraDirection),
             pointText(camera.cameraUpVector), numberName, numberText(number));
}

void printCameras(const BCFLib::Viewpoint &viewpoint, Report &report)
{
    QString perspective;
    if (viewpoint.whichCameraIsSet() & perspectiveBit) {
        const BCFLib::PerspectiveCamera camera = viewpoint.perspectiveCamera();
        perspective = cameraText(camera, QStringLiteral("field of view"), camera.fieldOfView);
    }
    QString orthogonal;
    if (viewpoint.whichCameraIsSet() & orthogonalBit) {
        const BCFLib::OrthogonalCamera camera = viewpoint.orthogonalCamera();
        orthogonal = cameraText(camera, QStringLiteral("scale"), camera.viewToWorldScale);
    }
    report.field(QStringLiteral("Perspective"), perspective);
    report.field(QStringLiteral("Orthogonal"), orthogonal);
}

QString hintText(const QString &name, Tavrin::Boolean value)
{
    return value == Tavrin::BooleanUnset
        ? QString()
        : name + (Tavrin::toBool(value) ? QStringLiteral(" shown") : QStringLiteral(" hidden"));
}

QString hintsText(const BCFLib::ViewSetupHints &hints)
{
    return joined({hintText(QStringLiteral("spaces"), hints.spacesVisible),
                   hintText(QStringLiteral("space boundaries"), hints.spaceBoundariesVisible),
                   hintText(QStringLiteral("openings"), hints.openingsVisible)});
}

/// The colour groups can be read through the variant form only.
QString coloringText(const BCFLib::Components &components)
{
    QStringList parts;
    for (const QVariant &group : components.toQVariant().toMap().value(QStringLiteral("coloring")).toList()) {
        const QVariantMap map = group.toMap();
        parts << QStringLiteral("%1 in %2")
                     .arg(countText(map.value(QStringLiteral("components")).toList().size()),
                          map.value(QStringLiteral("color")).toString());
    }
    return joined(parts);
}

void printSets(BCFLib::Components &components, Report &report)
{
    const QString others = components.getDefaultVisibility() ? QStringLiteral(" hidden, all others shown")
                                                             : QStringLiteral(" shown, all others hidden");
    report.field(QStringLiteral("Hints"), hintsText(components.getViewSetupHints()));
    report.field(QStringLiteral("Selected"), countText(components.getSelectionComponents().size()));
    report.field(QStringLiteral("Excepted"),
                 countText(components.getVisibilityExceptionComponents().size()) + others);
    report.field(QStringLiteral("Coloured"), coloringText(components));
}

void printList(const BCF_2_0_Lib::Viewpoint &viewpoint, Report &report)
{
    int selected = 0;
    int shown = 0;
    int hidden = 0;
    int coloured = 0;
    const QList<BCF_2_0_Lib::Component *> components = viewpoint.components();
    for (const BCF_2_0_Lib::Component *component : components) {
        selected += component->selected() == Tavrin::BooleanTrue ? 1 : 0;
        shown += component->visible() == Tavrin::BooleanTrue ? 1 : 0;
        hidden += component->visible() == Tavrin::BooleanFalse ? 1 : 0;
        coloured += component->color().isEmpty() ? 0 : 1;
    }
    report.field(QStringLiteral("Listed"),
                 QStringLiteral("%1: selected %2, shown %3, hidden %4, coloured %5")
                     .arg(countText(components.size()), countText(selected), countText(shown),
                          countText(hidden), countText(coloured)));
}

} // namespace

void printViewpoint(const BCFLib::Viewpoint &viewpoint, const QByteArray *snapshot, Report &report)
{
    const BCF_2_0_Lib::Viewpoint *const listForm = qobject_cast<const BCF_2_0_Lib::Viewpoint *>(&viewpoint);

    printVerdict(ArchiveCheck::problems(viewpoint), report);
    report.field(QStringLiteral("Form"), listForm ? QStringLiteral("list") : QStringLiteral("sets"));
    report.field(QStringLiteral("File"), viewpoint.viewpointFilename());
    printCameras(viewpoint, report);
    report.field(QStringLiteral("Geometry"),
                 QStringLiteral("lines %1, clipping planes %2, bitmaps %3")
                     .arg(countText(viewpoint.lines().size()), countText(viewpoint.clippingPlanes().size()),
                          countText(viewpoint.bitmaps().size())));
    if (listForm) {
        printList(*listForm, report);
    } else {
        printSets(*viewpoint.components(), report);
    }
    report.field(
        QStringLiteral("Snapshot"),
        snapshot
            ? QStringLiteral("%1, %2 bytes").arg(viewpoint.snapshotFilename(), countText(snapshot->size()))
            : QString());
}
