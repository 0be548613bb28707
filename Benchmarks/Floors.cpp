#include "Floors.h"

#include "Stopwatch.h"

#include <QDomDocument>
#include <QTextStream>
#include <functional>
#include <quazip/quazip.h>
#include <quazip/quazipfile.h>
#include <quazip/quazipnewinfo.h>

namespace Benchmarks {

namespace {

bool isXml(const QString &name)
{
    return name == "bcf.version" || name.endsWith(".bcf") || name.endsWith(".bcfv");
}

void forEachEntry(const QString &path, const std::function<void(const QString &, const QByteArray &)> &visit)
{
    QuaZip zip(path);
    zip.open(QuaZip::mdUnzip);
    for (bool more = zip.goToFirstFile(); more; more = zip.goToNextFile()) {
        QuaZipFile entry(&zip);
        entry.open(QIODevice::ReadOnly);
        visit(zip.getCurrentFileName(), entry.read(entry.usize()));
    }
}

QByteArray textOf(const QDomDocument &document)
{
    QByteArray text;
    QTextStream stream(&text);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    stream.setCodec("UTF-8");
#endif
    document.save(stream, 4, QDomNode::EncodingFromTextStream);
    stream.flush();
    return text;
}

} // namespace

void loadFloor(const QString &path)
{
    forEachEntry(path, [](const QString &name, const QByteArray &bytes) {
        if (isXml(name)) {
            QDomDocument document;
            document.setContent(bytes);
        }
    });
}

double saveFloor(const QString &path, const QString &target)
{
    QuaZip zip(target);
    zip.open(QuaZip::mdCreate);
    double total = 0;
    forEachEntry(path, [&zip, &total](const QString &name, const QByteArray &bytes) {
        QDomDocument document;
        if (isXml(name)) {
            document.setContent(bytes);
        }
        total += seconds([&] {
            QuaZipFile entry(&zip);
            entry.open(QIODevice::WriteOnly, QuaZipNewInfo(name));
            entry.write(isXml(name) ? textOf(document) : bytes);
        });
    });
    return total + seconds([&zip] { zip.close(); });
}

} // namespace Benchmarks
