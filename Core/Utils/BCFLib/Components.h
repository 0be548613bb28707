#ifndef BCFLIB_COMPONENTS_H
#define BCFLIB_COMPONENTS_H

#include "BCFLibExport.h"
#include "ViewSetupHints.h"

#include <QColor>
#include <QList>
#include <QMap>
#include <QObject>
#include <QSet>
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
    QList<Component *> getSelectionComponents();
    /// Replaces the selection; guids are taken as they come, also empty and repeated ones.
    void setSelectionComponents(const QStringList &guids);

    /// Whether elements that are no exception are visible.
    bool getDefaultVisibility() const;
    void setDefaultVisibility(bool defaultVisibility);

    /// The elements whose visibility is the opposite of the default.
    QList<Component *> getVisibilityExceptionComponents();
    /// Replaces the exceptions; guids are taken as they come, also empty and repeated ones.
    void setVisibilityExceptionComponents(const QStringList &guids);

    /// What the viewpoint says about kinds of elements that many tools hide.
    ViewSetupHints getViewSetupHints() const;
    void setViewSetupHints(const ViewSetupHints &viewSetupHints);

    /// Makes @p guids the group of @p color, replacing what the group held. Alpha does not count.
    void addColoringComponents(const QColor &color, const QStringList &guids);
    /// Deletes all colour groups with their components.
    void removeColoringComponents();

    /// A map of what is there: "view_setup_hints", "visibility", "selection" and "coloring".
    ///
    /// Without exceptions there is no "visibility", and the default visibility is not told.
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

    void clear();
    void readViewSetupHints(const QDomElement &element);
    struct Mention;
    static QVector<Mention> readMentions(const QDomElement &list);
    QList<Component *> makeComponents(const QVector<Mention> &mentions);
    void readColoring(const QDomElement &coloring);
    void writeViewSetupHints(QDomDocument &document, QDomElement &parent) const;
    void writeComponentList(QDomDocument &document, QDomElement &parent,
                            const QList<Component *> &list) const;
    QList<Component *> guidListToComponentList(const QStringList &guids);
    void addColoringComponents(const QColor &color, const QList<Component *> &list);

    QList<QVariant> componentListToVariant(const QList<Component *> &list) const;
    QList<Component *> variantToComponentList(const QVariant &value);

    /// A component that is destroyed leaves its set.
    void forget(Component *component);
    void deleteAll(const QList<Component *> &list);

    ViewSetupHints _viewSetupHints;
    QList<Component *> _selectionComponents;
    bool _defaultVisibility = true;
    QList<Component *> _visibilityExceptionComponents;
    QMap<QString, QList<Component *>> _coloringComponents;
    /// Components of a set that is being made; a host may delete them already. Where memory ended on the
    /// way, they stay here, in no set.
    QList<Component *> _arriving;
    /// Components that are being deleted, and stand in no set any more.
    QSet<QObject *> _doomed;
};

} // namespace BCFLib

#endif // BCFLIB_COMPONENTS_H
