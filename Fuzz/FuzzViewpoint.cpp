#include "Exercise.h"

#include <BCF_2_0_Viewpoint.h>
#include <Components.h>
#include <Topic.h>

#include <QBuffer>
#include <QDateTime>

namespace {

void read(BCFLib::Viewpoint *viewpoint, const QByteArray &bytes)
{
    QBuffer file;
    file.setData(bytes);
    viewpoint->deserialize(&file);
}

QByteArray written(BCFLib::Viewpoint *viewpoint)
{
    QBuffer file;
    Exercise::require(file.open(QIODevice::WriteOnly) && viewpoint->serialize(&file));
    return file.data();
}

template<class V>
void exerciseFile(const QByteArray &bytes, BCFLib::Topic *topic)
{
    const QString guid = QStringLiteral("v");
    V first(guid, topic);
    read(&first, bytes);
    V second(guid, topic);
    read(&second, written(&first));
    Exercise::require(second.lines().size() == first.lines().size());
    Exercise::require(second.bitmaps().size() == first.bitmaps().size());

    // The parser is laxer on characters than the writer. What was written once stays as it is.
    V third(guid, topic);
    const QByteArray again = written(&second);
    read(&third, again);
    // Nothing compares equal to a coordinate that is no number.
    Exercise::require(third.toQVariant() == second.toQVariant() || again.contains("nan<"));
    third.fromQVariant(second.toQVariant());
    third.BCFLib::Viewpoint::components()->removeColoringComponents();
    written(&third);
}

} // namespace

/// The input is a viewpoint file, which both classes of viewpoint read, write and read again.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const QSharedPointer<BCFLib::BCFModel> model = BCFLib::BCFModel::Create(nullptr);
    BCFLib::Topic *topic = model->addTopic(QStringLiteral("a"), QStringLiteral("b"),
                                           QDateTime::currentDateTime(), QStringLiteral("t"));
    exerciseFile<BCFLib::Viewpoint>(bytes, topic);
    exerciseFile<BCF_2_0_Lib::Viewpoint>(bytes, topic);
    return 0;
}
