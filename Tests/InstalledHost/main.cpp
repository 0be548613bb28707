// A host that knows the library only as it is installed. Makes an archive, loads it and tells its topic.

#include "BCF_2_0_Viewpoint.h"
#include "Components.h"
#include "Topic.h"

#include <Core/Utils/BCFLib/BCFModel.h>
#include <Core/Utils/QtCoreTools/ProgressionSignals.h>
#include <Core/Utils/Utility/NewId.h>

#include <QTextStream>

int main(int argc, char *argv[])
{
    const QString path = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    const QSharedPointer<BCFLib::BCFModel> made = BCFLib::BCFModel::Create(QStringLiteral("2.0"), nullptr);
    BCFLib::Topic *topic = made->addTopic(QStringLiteral("Duct runs through beam"), QStringLiteral("maria"),
                                          QDateTime::currentDateTime(), Tavrin::NewId());
    auto *viewpoint = qobject_cast<BCF_2_0_Lib::Viewpoint *>(topic->addViewpoint(QString()));
    viewpoint->addComponent(QStringLiteral("0BTBFw6f90Nfh9rP1dl_3A"))->setVisible(Tavrin::BooleanTrue);
    made->serialize(path);

    const auto loaded = BCFLib::BCFModel::Deserialize(path, Tavrin::ProgressionSignals());
    QTextStream(stdout) << (loaded->topics().isEmpty() ? QString() : loaded->topics().first()->title());
}
