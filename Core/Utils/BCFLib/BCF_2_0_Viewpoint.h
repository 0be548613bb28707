#pragma once

#include "BCF_2_0_Component.h"
#include "Viewpoint.h"

namespace BCF_2_0_Lib {

/// A viewpoint in the form of versions 2.0 and 1.0: its references to model elements are one flat
/// list, each with marks of its own.
///
/// The Components object of the base class, which components() of a BCFLib::Viewpoint pointer gives, is
/// there but stays empty; what a host puts into it is never saved.
class BCFLIB_EXPORT Viewpoint : public BCFLib::Viewpoint
{
    Q_OBJECT

public:
    /// A viewpoint without cameras, file names and components; @p topic becomes its owner.
    Viewpoint(const QString &guid, BCFLib::Topic *topic);
    ~Viewpoint() override;

    QMap<QString, QVariant> componentsToQVariant() const override;
    /// Merges the references of @p map into the list; nothing is removed first.
    void componentsFromQVariant(const QMap<QString, QVariant> &map) override;

    /// Adds a component without marks, replacing one of the same guid.
    ///
    /// An empty @p guid is logged as an error, but accepted.
    Component *addComponent(const QString &guid);
    /// The component that was added under that guid, or null.
    Component *getComponent(const QString &guid) const;
    /// All components in ascending order of the guid under which they were added.
    QList<Component *> components() const;

protected:
    /// The component of the guid that @p map names, made from the map if the list has none.
    Component *getOrCreateComponent(const QMap<QString, QVariant> &map);

    /// Adds the components below @p root, the root of a viewpoint file.
    void readComponents(QDomElement &root) override;
    /// Appends the list to @p root in ascending order of guids.
    void writeComponents(QDomDocument &document, QDomElement &root) override;

private:
    friend class Component;

    void forget(const Component *component);

    QMap<QString, Component *> _components;
};

} // namespace BCF_2_0_Lib
