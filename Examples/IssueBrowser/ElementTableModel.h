#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <QVector>

#include <functional>

namespace BCFLib {
class Viewpoint;
}
namespace BCF_2_0_Lib {
class Viewpoint;
}

/// The references of a viewpoint to model elements, one in a row: the guid and what the viewpoint does
/// with the element. An element that is selected and coloured may stand in two rows, as in the file.
///
/// A row is made up when it is looked at, so that a viewpoint of any size is shown at once.
class ElementTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Guid, Use };

    using QAbstractTableModel::QAbstractTableModel;

    /// Shows another viewpoint, which has to outlive its being shown; null for none.
    void setViewpoint(const BCFLib::Viewpoint *viewpoint);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Element
    {
        QString guid;
        QString use;
        QColor color = {};
    };
    /// Rows that come from one list; the first one has the number @c first.
    struct Group
    {
        int first;
        std::function<Element(int)> element;
    };

    void append(int size, const std::function<Element(int)> &element);
    void appendSets(const BCFLib::Viewpoint &viewpoint);
    void appendList(const BCF_2_0_Lib::Viewpoint &viewpoint);
    Element element(int row) const;

    QVector<Group> _groups;
    int _size = 0;
};
