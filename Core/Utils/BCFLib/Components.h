#pragma once

#include "BCFLibExport.h"
#include "ViewSetupHints.h"

#include <QColor>
#include <QList>
#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

class QDomDocument;
class QDomElement;

namespace BCF_2_0_Lib {
class Viewpoint;
}

namespace BCFLib {

class Component;

/// The references of one viewpoint to model elements in the sets form, that of version 2.1: which
/// elements are selected, which are visible, and how they are coloured.
///
/// Made by its viewpoint and owned by it. Each set owns its components alone: an element that is
/// selected and also coloured is two objects of one guid. Lists that are handed out are copies of
/// pointers; the objects live until their set is replaced.
class BCFLIB_EXPORT Components : public QObject
{
    Q_OBJECT

public:
    ~Components() override;

    /// The elements that are selected, in file order.
    QList<Component *> getSelectionComponents() { return _selectionComponents; }
    /// Replaces the selection; guids are taken as they come, also empty and repeated ones.
    void setSelectionComponents(const QStringList &guids);

    /// Whether elements that are no exception are visible.
    bool getDefaultVisibility() const { return _defaultVisibility; }
    void setDefaultVisibility(bool defaultVisibility) { _defaultVisibility = defaultVisibility; }

    /// The elements whose visibility is the opposite of the default.
    QList<Component *> getVisibilityExceptionComponents() { return _visibilityExceptionComponents; }
    /// Replaces the exceptions; guids are taken as they come, also empty and repeated ones.
    void setVisibilityExceptionComponents(const QStringList &guids);

    /// What the viewpoint says about kinds of elements that many tools hide.
    ViewSetupHints getViewSetupHints() const { return _viewSetupHints; }
    void setViewSetupHints(const ViewSetupHints &viewSetupHints) { _viewSetupHints = viewSetupHints; }

    /// Makes @p guids the group of @p color, replacing what the group held. Alpha does not count.
    void addColoringComponents(const QColor &color, const QStringList &guids);
    /// Deletes all colour groups with their components.
    void removeColoringComponents();

    /// A map of what is there: "view_setup_hints", "visibility", "selection" and "coloring".
    ///
    /// Without exceptions there is no "visibility", and the default visibility is not included.
    QVariant toQVariant() const;
    /// Replaces everything by what @p variant holds.
    void fromQVariant(const QVariant &variant);

protected:
    /// For the viewpoint, which has exactly one.
    explicit Components(QObject *parent = nullptr);

    /// Hands the event on to the owners that keep an index of guids.
    void childEvent(QChildEvent *event) override;

private:
    friend class Viewpoint;
    friend class BCF_2_0_Lib::Viewpoint;
    friend class Component;

    void read(const QDomElement &root);
    void write(QDomDocument &document, QDomElement &root) const;

    /// What a list of a file or a variant says about a component.
    struct Mention
    {
        QString guid;
        QString ifcProjectId;
        QString originatingSystem;
        QString authoringToolId;
    };
    class Batch;

    void clear();
    QVector<QList<Component *> *> coloringSets();
    void replace(QList<Component *> &set, const QVector<Mention> &mentions);
    void replaceColor(const QString &name, const QVector<Mention> &mentions);
    static QVector<Mention> mentionsOf(const QStringList &guids);

    void readViewSetupHints(const QDomElement &element);
    static QVector<Mention> readMentions(const QDomElement &list);
    void readColoring(const QDomElement &coloring);
    void writeViewSetupHints(QDomDocument &document, QDomElement &parent) const;
    void writeComponentList(QDomDocument &document, QDomElement &parent,
                            const QList<Component *> &list) const;

    QList<QVariant> componentListToVariant(const QList<Component *> &list) const;
    static QVector<Mention> mentionsOf(const QVariant &list);

    ViewSetupHints _viewSetupHints;
    QList<Component *> _selectionComponents;
    bool _defaultVisibility = true;
    QList<Component *> _visibilityExceptionComponents;
    QMap<QString, QList<Component *>> _coloringComponents;
};

} // namespace BCFLib
