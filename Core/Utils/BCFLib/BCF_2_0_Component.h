#pragma once

#include "Component.h"

#include <Core/Utils/QtCoreTools/Boolean.h>

namespace BCF_2_0_Lib {

class Viewpoint;

/// A reference to one element of the building model with the marks of the list form.
///
/// Made by BCF_2_0_Lib::Viewpoint and owned by it.
class BCFLIB_EXPORT Component : public BCFLib::Component
{
    Q_OBJECT
    Q_PROPERTY(QString _color READ color WRITE setColor)

public:
    ~Component() override;

    /// Whether the viewpoint shows the element. BCF-XML 2.0 takes an element without this mark for visible.
    Tavrin::Boolean visible() const { return _visible; }
    void setVisible(Tavrin::Boolean visible) { _visible = visible; }

    /// Whether the viewpoint marks the element as selected. BCF-XML 2.0 takes one without this mark for not
    /// selected.
    Tavrin::Boolean selected() const { return _selected; }
    void setSelected(Tavrin::Boolean selected) { _selected = selected; }

    /// The colour as the file's text, as a rule hexadecimal digits; nothing reads it as a colour.
    QString color() const { return _color; }
    void setColor(const QString &color) { _color = color; }

protected:
    /// For BCF_2_0_Lib::Viewpoint, which keeps the list.
    Component(const QString &guid, QObject *parent);

private:
    friend class Viewpoint;

    Tavrin::Boolean _visible = Tavrin::BooleanUnset;
    Tavrin::Boolean _selected = Tavrin::BooleanUnset;
    QString _color;
    /// The viewpoint whose list it stands in, and the guid under which it was added.
    Viewpoint *_viewpoint = nullptr;
    QString _key;
};

} // namespace BCF_2_0_Lib
