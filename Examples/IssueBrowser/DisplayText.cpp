#include "DisplayText.h"

#include <Core/Utils/BCFLib/BCF_2_0_Viewpoint.h>
#include <Core/Utils/BCFLib/Components.h>

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

namespace {

constexpr int longestLine = 300;
constexpr int longestParagraph = 10000;

constexpr int perspectiveBit = 1;
constexpr int orthogonalBit = 2;

class Texts
{
    Q_DECLARE_TR_FUNCTIONS(DisplayText)
};

QString count(int number)
{
    return QLocale().toString(number);
}

QString point(const osg::Vec3d &point)
{
    const QLocale locale;
    return QStringLiteral("(%1; %2; %3)")
        .arg(locale.toString(point.x(), 'f', 3), locale.toString(point.y(), 'f', 3),
             locale.toString(point.z(), 'f', 3));
}

/// Both kinds of camera have the same three vectors.
template<typename Camera>
QString place(const Camera &camera)
{
    return Texts::tr("at %1\ntowards %2, up %3")
        .arg(point(camera.cameraViewPoint), point(camera.cameraDirection), point(camera.cameraUpVector));
}

QString sets(const BCFLib::Viewpoint &viewpoint)
{
    BCFLib::Components &components = *viewpoint.components();
    const int selected = components.getSelectionComponents().size();
    const int exceptions = components.getVisibilityExceptionComponents().size();
    // The colour groups have no reader of their own, but each component stands in exactly one set.
    const int all = components.children().size();
    const QString visibility = components.getDefaultVisibility() ? Texts::tr("%1 hidden, all others shown")
                                                                 : Texts::tr("%1 shown, all others hidden");
    return Texts::tr("%1 selected, %2 coloured").arg(count(selected), count(all - selected - exceptions))
        + QLatin1Char('\n') + visibility.arg(count(exceptions));
}

QString list(const BCF_2_0_Lib::Viewpoint &viewpoint)
{
    int selected = 0;
    int coloured = 0;
    int hidden = 0;
    const QList<BCF_2_0_Lib::Component *> components = viewpoint.components();
    for (const BCF_2_0_Lib::Component *component : components) {
        selected += component->selected() == Tavrin::BooleanTrue ? 1 : 0;
        coloured += component->color().isEmpty() ? 0 : 1;
        hidden += component->visible() == Tavrin::BooleanFalse ? 1 : 0;
    }
    return Texts::tr("%1 listed, of them\n%2 selected, %3 coloured, %4 hidden")
        .arg(count(components.size()), count(selected), count(coloured), count(hidden));
}

} // namespace

QString DisplayText::oneLine(const QString &text)
{
    return text.left(longestLine).simplified();
}

QString DisplayText::paragraph(const QString &text)
{
    const int rest = text.size() - longestParagraph;
    return rest <= 0 ? text
                     : text.left(longestParagraph) + Texts::tr("\n… and %1 more characters").arg(count(rest));
}

QString DisplayText::date(const QDateTime &date)
{
    const QLocale locale;
    QString format = locale.dateTimeFormat(QLocale::ShortFormat);
    if (!format.contains(QLatin1String("yyyy"))) {
        format.replace(QLatin1String("yy"), QLatin1String("yyyy"));
    }
    return locale.toString(date, format.remove(QLatin1String(":ss")));
}

QString DisplayText::viewName(int number)
{
    return Texts::tr("View %1").arg(count(number));
}

QString DisplayText::cameras(const BCFLib::Viewpoint &viewpoint)
{
    QStringList lines;
    if (viewpoint.whichCameraIsSet() & perspectiveBit) {
        const BCFLib::PerspectiveCamera camera = viewpoint.perspectiveCamera();
        lines << Texts::tr("Perspective, %1°, %2").arg(QLocale().toString(camera.fieldOfView), place(camera));
    }
    if (viewpoint.whichCameraIsSet() & orthogonalBit) {
        const BCFLib::OrthogonalCamera camera = viewpoint.orthogonalCamera();
        lines << Texts::tr("Orthogonal, %1 m high, %2")
                     .arg(QLocale().toString(camera.viewToWorldScale), place(camera));
    }
    return lines.isEmpty() ? Texts::tr("none") : lines.join(QLatin1Char('\n'));
}

QString DisplayText::elements(const BCFLib::Viewpoint &viewpoint)
{
    const auto *const listForm = qobject_cast<const BCF_2_0_Lib::Viewpoint *>(&viewpoint);
    return listForm ? list(*listForm) : sets(viewpoint);
}

QString DisplayText::geometry(const BCFLib::Viewpoint &viewpoint)
{
    return Texts::tr("Lines: %1, clipping planes: %2, bitmaps: %3")
        .arg(count(viewpoint.lines().size()), count(viewpoint.clippingPlanes().size()),
             count(viewpoint.bitmaps().size()));
}
