#include "Exercise.h"

#include <QFile>

/// The input is a whole archive.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QString path = Exercise::scratchPath(QStringLiteral("input.bcf"));
    QFile file(path);
    Exercise::require(file.open(QIODevice::WriteOnly)
                      && file.write(reinterpret_cast<const char *>(data), static_cast<qint64>(size))
                          == static_cast<qint64>(size));
    file.close();
    const QSharedPointer<BCFLib::BCFModel> model = Exercise::load(path);
    Exercise::require(model != nullptr);
    Exercise::everything(model.data());
    return 0;
}
