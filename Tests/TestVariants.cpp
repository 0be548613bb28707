#include "TestArchive.h"

#include <Core/Utils/QtCoreTools/Boolean.h>
#include <QJsonDocument>

#include <algorithm>
#include <limits>

using namespace BCFLib;

namespace {

/// A form from JSON with single quotes.
QVariant form(QByteArray json)
{
    return QJsonDocument::fromJson(json.replace('\'', '"')).toVariant();
}

QByteArray jsonOf(const QVariant &variant)
{
    return QJsonDocument::fromVariant(variant).toJson(QJsonDocument::Compact);
}

QString guids(const QVariant &list)
{
    QStringList result;
    for (const QVariant &component : list.toList()) {
        result.append(component.toMap().value("ifc_guid").toString());
    }
    return result.join(',');
}

/// A form of references in short: "visible but a,b; selected b; #ff0000 a,c".
QString brief(const QVariantMap &references)
{
    QStringList parts;
    const QVariantMap visibility = references.value("visibility").toMap();
    if (!visibility.isEmpty()) {
        const QString word = visibility.value("default_visibility").toBool() ? "visible" : "hidden";
        parts.append(word + " but " + guids(visibility.value("exceptions")));
    }
    if (references.contains("selection")) {
        parts.append("selected " + guids(references.value("selection")));
    }
    for (const QVariant &group : references.value("coloring").toList()) {
        parts.append(group.toMap().value("color").toString() + ' '
                     + guids(group.toMap().value("components")));
    }
    return parts.join("; ");
}

/// Components of the list form in short: guid, "+" or "-" for visible, "s" or "n" for selected, "=" and
/// colour.
QString brief(const BCF_2_0_Lib::Viewpoint *viewpoint)
{
    QStringList parts;
    for (const BCF_2_0_Lib::Component *component : viewpoint->components()) {
        const QString visible = QStringList{"+", "-", ""}.at(component->visible());
        const QString selected = QStringList{"s", "n", ""}.at(component->selected());
        const QString color = component->color().isEmpty() ? QString() : '=' + component->color();
        parts.append(component->guid() + visible + selected + color);
    }
    return parts.join(' ');
}

void addBrief(BCF_2_0_Lib::Viewpoint *viewpoint, const QString &components)
{
    for (const QString &part : components.split(' ', Qt::SkipEmptyParts)) {
        const QString marks = part.section('=', 0, 0);
        BCF_2_0_Lib::Component *component = viewpoint->addComponent(part.left(1));
        component->setVisible(Tavrin::Boolean(marks.contains('+') ? 0 : marks.contains('-') ? 1 : 2));
        component->setSelected(Tavrin::Boolean(marks.contains('s') ? 0 : marks.contains('n') ? 1 : 2));
        component->setColor(part.section('=', 1));
    }
}

Topic *addTopic(const QSharedPointer<BCFModel> &model)
{
    return model->addTopic("T", "A", QDateTime(), "t");
}

} // namespace

class TestVariants : public QObject
{
    Q_OBJECT

private slots:
    void truthOfVariants();
    void topics_data() { addRows("Variants/topics.json"); }
    void topics();
    void folding_data() { addRows("Variants/folding.json"); }
    void folding();
    void references_data() { addRows("Variants/references.json"); }
    void references();
    void setsAreWrittenWhereTheyAreNotRead();
    void liveTopic();
    void datesAndBytes();
};

void TestVariants::truthOfVariants()
{
    using namespace Tavrin;
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    const QVariant nullBool(QVariant::Bool);
#else
    const QVariant nullBool(QMetaType::fromType<bool>());
#endif
    const auto check = [](Boolean truth, const QVariantList &variants) {
        for (const QVariant &variant : variants) {
            QCOMPARE(fromVariant(variant), truth);
            QCOMPARE(toBool(truth), truth == BooleanTrue);
            if (variant.userType() == QMetaType::QString) {
                QCOMPARE(toBoolean(variant.toString()), truth);
                QCOMPARE(toBool(variant.toString()), truth == BooleanTrue);
            }
        }
    };
    // A Boolean stays what it is, though the number of BooleanTrue is 0.
    check(BooleanTrue, {true, "1", "\n TRUE ", 0.25, QVariant::fromValue(BooleanTrue)});
    check(BooleanFalse, {false, "0", " False\t", qlonglong(0)});
    check(BooleanUnset, {"yes", "10", "", QVariant(), nullBool, QVariant(QVariantList{true})});
}

void TestVariants::topics()
{
    QFETCH(QVariantMap, row);

    const QSharedPointer<BCFModel> model = BCFModel::Create(row["version"].toString(), nullptr);
    const Topic *topic = new Topic(row["given"], model.data());
    QCOMPARE(jsonOf(topic->toQVariant()), jsonOf(row["rebuilt"]));
    QCOMPARE(model->topics().size(), 1);
}

void TestVariants::folding()
{
    QFETCH(QVariantMap, row);

    BCF_2_0_Lib::Viewpoint viewpoint("v", nullptr);
    addBrief(&viewpoint, row["components"].toString());
    QCOMPARE(brief(viewpoint.componentsToQVariant()), row["folded"].toString());
    BCF_2_0_Lib::Viewpoint rebuilt("v", nullptr);
    for (int time = 0; time < 2; ++time) {
        rebuilt.componentsFromQVariant(viewpoint.componentsToQVariant());
        QCOMPARE(brief(&rebuilt), row["unfolded"].toString());
    }
}

void TestVariants::references()
{
    QFETCH(QVariantMap, row);

    Viewpoint sets("v", nullptr);
    sets.components()->setSelectionComponents({"old"});
    sets.components()->addColoringComponents(QColor("#123456"), QStringList{"old"});
    sets.componentsFromQVariant(row["given"].toMap());
    QCOMPARE(jsonOf(sets.componentsToQVariant()), jsonOf(row["sets"]));
    BCF_2_0_Lib::Viewpoint list("v", nullptr);
    addBrief(&list, "o+");
    list.componentsFromQVariant(row["given"].toMap());
    QCOMPARE(brief(&list), row["list"].toString());
}

void TestVariants::setsAreWrittenWhereTheyAreNotRead()
{
    Viewpoint viewpoint("v", nullptr);
    Components *sets = viewpoint.components();
    sets->setDefaultVisibility(false);
    QVERIFY(viewpoint.componentsToQVariant().isEmpty());
    ViewSetupHints hints;
    hints.spaceBoundariesVisible = Tavrin::BooleanFalse;
    hints.fromQVariant(QVariantMap());
    sets->setViewSetupHints(hints);
    sets->setVisibilityExceptionComponents({"b", "a", "b"});
    sets->addColoringComponents(QColor("#FF0000"), {"b"});
    sets->addColoringComponents(QColor("#00ff00"), QStringList());
    QCOMPARE(jsonOf(viewpoint.componentsToQVariant().take("view_setup_hints")),
             QByteArray("{\"space_boundaries_visible\":false}"));
    QCOMPARE(brief(viewpoint.componentsToQVariant()), QString("hidden but b,a,b; #00ff00 ; #ff0000 b"));
    viewpoint.componentsFromQVariant(viewpoint.componentsToQVariant());
    QCOMPARE(viewpoint.componentsToQVariant().keys(), QStringList("visibility"));
    QCOMPARE(brief(viewpoint.componentsToQVariant()), QString("hidden but b,a,b"));
}

void TestVariants::liveTopic()
{
    const QSharedPointer<BCFModel> model = BCFModel::Create("2.0", nullptr);
    Topic *topic = addTopic(model);
    topic->fromQVariant(
        form("{'guid':'t','files':[{}],'document_references':[{}],'related_topics':[{'guid':'x'}],"
             "'bim_snippet':{},'viewpoints':[{'guid':'v','lines':[{}],'components':{'selection':"
             "[{'ifc_guid':'a'}]},'snapshot':{'snapshot_data':'image'}}],'comments':[{'guid':'c'},"
             "{'guid':'d','viewpoint_guid':'v','reply_to_comment_guid':'c'}]}"));
    QVERIFY(!topic->toQVariant().toMap().value("related_topics").toList().first().toString().isEmpty());
    Comment *guest = addTopic(model)->addComment("guest");
    guest->setViewpoint(topic->viewpoint("v"));
    guest->setReplyToComment(topic->comment("c"));
    const QList<QObject *> all = topic->findChildren<QObject *>();
    const QList<QPointer<QObject>> before(all.begin(), all.end());
    QVariantMap again = topic->toQVariant().toMap();
    QVariantMap viewpoint = again.value("viewpoints").toList().first().toMap();
    viewpoint.remove("snapshot");
    again.insert("viewpoints", QVariantList{viewpoint});
    topic->fromQVariant(again);

    QCOMPARE(topic->findChildren<QObject *>().size(), before.size());
    QCOMPARE(std::count(before.begin(), before.end(), nullptr), before.size());
    QVERIFY(guest->viewpoint() == nullptr && guest->replyToComment() == nullptr);
    topic->comment("d")->fromQVariant(form("{'guid':'d'}"));
    QCOMPARE(topic->comment("d")->viewpoint(), topic->viewpoint("v"));
    QCOMPARE(topic->comment("d")->replyToComment(), topic->comment("c"));
    // The store of images is not cleared: the viewpoint that brought none finds the old one.
    QCOMPARE(*topic->snapshot("v"), QByteArray("image"));

    topic->fromQVariant(5);
    QVERIFY(topic->children().isEmpty() && !topic->guid().isEmpty() && topic->guid() != "t");
}

void TestVariants::datesAndBytes()
{
    const QSharedPointer<BCFModel> model = BCFModel::Create(nullptr);
    Topic *topic = addTopic(model);
    const QDateTime offset(QDate(2024, 3, 14), QTime(9, 0, 0, 500), Qt::OffsetFromUTC, 19800);
    topic->setCreationDate(offset);
    topic->setModifiedDate(QDateTime(QDate(), QTime(9, 0)));
    topic->addViewpoint("v")->setSnapshot(TestArchive::png() + '\0' + "\xff");
    OrthogonalCamera camera;
    camera.viewToWorldScale = std::numeric_limits<double>::denorm_min();
    camera.cameraUpVector = osg::Vec3d(0.1, -0.0, 1e300);
    topic->viewpoint("v")->setOrthogonalCamera(camera);
    const QVariantMap map = topic->toQVariant().toMap();
    QCOMPARE(map.value("modified_date"), QVariant(QString("")));
    const Topic rebuilt(map, model.data());
    QCOMPARE(rebuilt.creationDate().toString(Qt::ISODateWithMs), QString("2024-03-14T09:00:00.000+05:30"));
    QCOMPARE(*rebuilt.snapshot("v"), *topic->snapshot("v"));
    QCOMPARE(rebuilt.viewpoint("v")->whichCameraIsSet(), 2);
    QCOMPARE(rebuilt.viewpoint("v")->orthogonalCamera().viewToWorldScale, camera.viewToWorldScale);
    QVERIFY(rebuilt.viewpoint("v")->orthogonalCamera().cameraUpVector == camera.cameraUpVector);
    rebuilt.viewpoint("v")->setOrthogonalCamera(OrthogonalCamera());
    QCOMPARE(rebuilt.viewpoint("v")->whichCameraIsSet(), 0);
}

QTEST_GUILESS_MAIN(TestVariants)

#include "TestVariants.moc"
