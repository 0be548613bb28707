#include "TestArchive.h"

#include <Topic.h>

#include <QRegularExpression>
#include <QTest>

class TestMarkupReading : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("TZ", "Asia/Kolkata"); }
    void objects_data();
    void objects();
};

void TestMarkupReading::objects_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<QByteArray>("inside");
    QTest::addColumn<QByteArray>("className");
    QTest::addColumn<QString>("properties");
    QTest::addColumn<QStringList>("expected");

    QByteArray className = "BCFLib::Topic";
    QString properties;
    const auto row = [&className, &properties](const char *name, const QByteArray &inside,
                                               const QStringList &expected, const char *version = "2.1") {
        QTest::newRow(name) << QString(version) << inside << className << properties << expected;
    };
    properties = "_index";
    row("no index is -1", "<Topic/>", {"-1"});
    row("an index is a number", "<Topic><Index>7</Index></Topic>", {"7"});
    row("an empty index is 0", "<Topic><Index/></Topic>", {"0"});
    row("an index that is no number is 0", "<Topic><Index>x</Index></Topic>", {"0"});
    row("an index too large is 0", "<Topic><Index>99999999999</Index></Topic>", {"0"});
    properties = "_labels _title _priority";
    row("labels repeat and may be empty",
        "<Topic><Labels>b</Labels><Title/><Labels>b</Labels><Labels/></Topic>", {"b,b,||"});
    row("the first of a name counts, in its case and place",
        "<x><Topic/></x><Topic><title>x</title><x><Title>x</Title></x><Title>1</Title><Title>2</Title></"
        "Topic>"
        "<Topic><Priority>3</Priority></Topic>",
        {"|1|"});
    row("all text below counts",
        "<Topic><Title>a<!-- x --><b>b</b><![CDATA[<c>]]>&amp;</Title><Priority> 1 </Priority></Topic>",
        {"|ab<c>&| 1 "});
    properties = "_creationDate _modifiedDate";
    row("dates become local time, what is no date none",
        "<Topic><CreationDate>2020-01-01T00:00:00-02:00</CreationDate><ModifiedDate>1.1.20</ModifiedDate></"
        "Topic>",
        {"2020-01-01T07:30:00.000|"});
    properties = "objectName _title _creationAuthor _topicStatus _creationDate";
    row("nothing is filled in in version 2.0", "<Topic/>", {"||||"}, "2.0");
    row("nor in version 2.1", "<Topic/>", {"||||"});
    row("what is missing is unknown in version 1.0", "<Topic/>", {"new|Unknown|Unknown||now"}, "1.0");
    row("nothing is unknown without a topic", "", {"new||||now"}, "1.0");
    row("what is there stays in version 1.0",
        "<Topic Guid='t'><Title>a</Title><CreationAuthor>b</CreationAuthor></Topic>", {"t|a|b||now"}, "1.0");

    className = "BCFLib::File";
    properties = "_isExternal _filename _reference _date";
    row("files are external unless told otherwise and keep their time zone",
        "<Header><File><Filename>../a</Filename><Date>2020-01-01T00:00:00-02:00</Date></File>"
        "<File isExternal='False'/><File isExternal='false'><Reference>../r</Reference></File></Header>"
        "<Header><File/></Header>",
        {"true|../a||2020-01-01T00:00:00.000-02:00", "true|||", "false||../r|"});
    className = "BCFLib::DocumentReference";
    properties = "objectName _isExternal _referencedDocument";
    row("documents are in the archive unless told otherwise",
        "<Topic><DocumentReference Guid='d'/><DocumentReference isExternal='TRUE'/><DocumentReference "
        "Guid='d' "
        "isExternal='true'><ReferencedDocument>../a</ReferencedDocument></DocumentReference></Topic>",
        {"d|false|", "|false|", "d|true|../a"});
    className = "BCFLib::BimSnippet";
    properties = "_snippetType _isExternal _referenceSchema";
    row("the first snippet counts",
        "<Topic><BimSnippet "
        "SnippetType='a'><ReferenceSchema>s</ReferenceSchema></BimSnippet><BimSnippet/></Topic>",
        {"a|false|s"});
    className = "BCFLib::RelatedTopic";
    properties = "_guid";
    row("a link to no topic is passed by",
        "<Topic><RelatedTopics Guid=''/><RelatedTopics><RelatedTopic Guid='a'/></RelatedTopics>"
        "<RelatedTopics Guid='b'/><RelatedTopics Guid='b'/></Topic>",
        {"b", "b"});
    className = "BCFLib::Viewpoint";
    properties = "objectName _viewpointFilename _snapshotFilename";
    row("a viewpoint needs a guid, which may be repeated",
        "<Viewpoints Guid='v'/><Viewpoints><Viewpoint>a</Viewpoint></Viewpoints><Viewpoints Guid=''/>"
        "<Viewpoints Guid='v'><Snapshot>s</Snapshot><Viewpoint>a</Viewpoint></Viewpoints>",
        {"v||", "v|a|s"});

    className = "BCFLib::Comment";
    properties = "objectName _viewpoint _replyToComment _topic";
    row("comments link to viewpoints of the topic only",
        "<Topic Guid='t'/><Comment><Viewpoint Guid='w'/></Comment><Comment><Viewpoint/></Comment><Comment/>"
        "<Comment><Viewpoint Guid='x'/></Comment><Viewpoints Guid='v'/><Viewpoints Guid='w'/>",
        {"new|w||t", "new|||t", "new|||t", "new|||t"});
    row("a comment may answer one that comes later or nobody",
        "<Topic Guid='t'/><Comment Guid='a'><ReplyToComment Guid='b'/></Comment>"
        "<Comment Guid='b'><ReplyToComment Guid='x'/></Comment><Comment Guid='b'/>",
        {"a||b|t", "b|||t", "b|||t"});
    row("a comment of another topic is dropped, with the answers' links",
        "<Topic Guid='t'/><Comment Guid='a'><Topic Guid='T'/></Comment><Comment Guid='b'><Topic "
        "Guid='t'/></Comment>"
        "<Comment Guid='c'><Topic Guid=''/><ReplyToComment Guid='a'/></Comment>",
        {"b|||t", "c|||t"});
    properties = "objectName _comment _status";
    row("a fresh topic guid loses the comments that name one",
        "<Topic/><Comment Guid='a'><Topic Guid='t'/></Comment><Comment Guid=''/>", {"new||"}, "1.0");
    row("a state is read in version 2.0", "<Comment Guid='a'><Status>s</Status></Comment>", {"a||s"}, "2.0");
    row("a state is not read in version 2.1", "<Comment Guid='a'><Status>s</Status></Comment>", {"a||"});
    const QByteArray described =
        "<Topic Guid='t'><Description>old</Description></Topic>"
        "<Comment Guid='0'><Comment>text Description : </Comment></Comment>"
        "<Comment Guid='x'><Topic Guid='x'/><Comment>Description : x</Comment></Comment>"
        "<Comment Guid='1'><Comment>Description : a Description : b</Comment></Comment>"
        "<Comment Guid='2'><Comment>Description : c</Comment></Comment>";
    row("one comment of version 1.0 is a description", described,
        {"0|text Description : |", "2|Description : c|"}, "1.0");
    row("none is in version 2.0", described,
        {"0|text Description : |", "1|Description : a Description : b|", "2|Description : c|"}, "2.0");
    className = "BCFLib::Topic";
    properties = "_description";
    row("the topic of version 1.0 takes the description", described, {"a b"}, "1.0");
    row("the topic of version 2.0 keeps its own", described, {"old"}, "2.0");
}

void TestMarkupReading::objects()
{
    QFETCH(QString, version);
    QFETCH(QByteArray, inside);
    QFETCH(QByteArray, className);
    QFETCH(QString, properties);

    const auto model = TestArchive(version).add("f/markup.bcf", "<Markup>" + inside + "</Markup>").load();
    QStringList lines = tellAll(model.data(), className, properties);
    for (QString &line : lines) {
        line.replace(QRegularExpression("^[-0-9a-f{}]{36,38}"), "new");
        const QString date = line.section('|', -1);
        const QDateTime time = QDateTime::fromString(date, Qt::ISODateWithMs);
        if (time.isValid() && qAbs(time.secsTo(QDateTime::currentDateTime())) < 60) {
            line.replace(date, "now");
        }
    }
    QTEST(lines, "expected");
}

QTEST_GUILESS_MAIN(TestMarkupReading)

#include "TestMarkupReading.moc"
