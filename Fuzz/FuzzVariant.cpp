#include "Exercise.h"

#include <Topic.h>

#include <QStringList>
#include <QVariant>
#include <fuzzer/FuzzedDataProvider.h>

#include <string>

namespace {

/// All keys of the variant form.
QString key(FuzzedDataProvider &input)
{
    static const QStringList keys =
        QStringLiteral(
            "guid title topic_type topic_status reference_link priority index labels creation_date "
            "creation_author modified_date modified_author assigned_to description bim_snippet "
            "snippet_type is_external reference reference_schema files ifc_project "
            "ifc_spatial_structure_element file_name date document_references referenced_document "
            "related_topics comments author comment topic_guid viewpoint_guid reply_to_comment_guid "
            "verbal_status status viewpoints snapshot snapshot_type snapshot_data viewpoint_file "
            "snapshot_file orthogonal_camera perspective_camera camera_view_point camera_direction "
            "camera_up_vector view_to_world_scale field_of_view lines start_point end_point "
            "clipping_planes location direction bitmaps bitmap_type normal up height components "
            "view_setup_hints spaces_visible space_boundaries_visible openings_visible visibility "
            "default_visibility exceptions selection coloring color ifc_guid originating_system "
            "authoring_tool_id x y z")
            .split(QLatin1Char(' '));
    return keys.at(input.ConsumeIntegralInRange(0, keys.size() - 1));
}

QString text(FuzzedDataProvider &input)
{
    const std::string bytes = input.ConsumeRandomLengthString(24);
    const auto *units = reinterpret_cast<const ushort *>(bytes.data());
    // Every other text in arbitrary UTF-16 units, halves of surrogate pairs among them.
    return input.ConsumeBool() ? QString::fromStdString(bytes)
                               : QString::fromUtf16(units, static_cast<int>(bytes.size() / 2));
}

QVariant variant(FuzzedDataProvider &input, int depth)
{
    switch (input.ConsumeIntegralInRange(0, depth > 0 ? 9 : 6)) {
    case 0:
        return QVariant();
    case 1:
        return text(input);
    case 2:
        return input.ConsumeBool();
    case 3:
        return input.ConsumeIntegral<qint64>();
    case 4:
        return input.ConsumeFloatingPoint<double>();
    case 5:
        return QByteArray::fromStdString(input.ConsumeRandomLengthString(40));
    case 6:
        return QStringList{text(input), text(input)};
    case 7: {
        QVariantList list;
        while (input.remaining_bytes() > 0 && input.ConsumeBool()) {
            list.append(variant(input, depth - 1));
        }
        return list;
    }
    default: {
        QVariantMap map;
        while (input.remaining_bytes() > 0 && input.ConsumeBool()) {
            const QString name = key(input);
            map.insert(name, variant(input, depth - 1));
        }
        return map;
    }
    }
}

} // namespace

/// The input is the plan of a topic's variant form, in which any value may stand under any key.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    FuzzedDataProvider input(data, size);
    const QString version = input.ConsumeBool() ? QStringLiteral("2.0") : QStringLiteral("2.1");
    const QSharedPointer<BCFLib::BCFModel> model = BCFLib::BCFModel::Create(version, nullptr);
    BCFLib::Topic topic(variant(input, 7), model.data());
    topic.fromQVariant(variant(input, 7));
    topic.removeFiles();
    topic.setGuid(QStringLiteral("t"));
    const QSharedPointer<BCFLib::BCFModel> reloaded = Exercise::everything(model.data());
    Exercise::require(reloaded == nullptr || reloaded->topics().size() == 1);
    return 0;
}
