#include "BCF_2_0_Component.h"

#include "BCF_2_0_Viewpoint.h"

namespace BCF_2_0_Lib {

Component::Component(const QString &guid, QObject *parent)
    : BCFLib::Component(guid, parent)
{
}

Component::~Component()
{
    if (_viewpoint != nullptr) {
        _viewpoint->forget(this);
    }
}

} // namespace BCF_2_0_Lib
