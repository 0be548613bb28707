#include "Exercise.h"

#include <Comment.h>
#include <File.h>
#include <Topic.h>
#include <Viewpoint.h>

#include <QBuffer>

namespace {

/// Reading of a markup is for the model alone.
class TopicDoor : public BCFLib::Topic
{
public:
    using Topic::Deserialize;
};

} // namespace

/// The input is the version of an archive, as one byte, and a markup file.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QStringList versions{QStringLiteral("2.1"), QStringLiteral("2.0"), QStringLiteral("1.0"),
                               QStringLiteral("3.0")};
    if (size == 0) {
        return 0;
    }
    const QString version = versions.at(data[0] % versions.size());
    QBuffer markup;
    markup.setData(reinterpret_cast<const char *>(data + 1), static_cast<int>(size - 1));
    const QSharedPointer<BCFLib::BCFModel> model =
        BCFLib::BCFModel::Create(version == versions.first() ? version : QStringLiteral("2.0"), nullptr);
    QStringList files;
    BCFLib::Topic *topic = TopicDoor::Deserialize(&markup, files, version);
    if (topic == nullptr) {
        return 0;
    }
    topic->setParent(model.data());
    // What would keep the topic from being saved, or from being found again.
    topic->setGuid(QStringLiteral("t"));
    topic->removeFiles();
    for (BCFLib::Viewpoint *viewpoint : topic->viewpoints()) {
        viewpoint->setSnapshotFilename(QString());
    }
    const int comments = topic->comments().size();
    const int viewpoints = topic->viewpoints().size();
    const QSharedPointer<BCFLib::BCFModel> reloaded = Exercise::everything(model.data());
    Exercise::require(reloaded == nullptr || reloaded->topics().size() == 1);
    if (reloaded != nullptr) {
        Exercise::require(reloaded->topics().first()->comments().size() == comments);
        Exercise::require(reloaded->topics().first()->viewpoints().size() == viewpoints);
    }
    return 0;
}
