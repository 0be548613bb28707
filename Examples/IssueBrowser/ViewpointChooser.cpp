#include "ViewpointChooser.h"

#include "DisplayText.h"

#include <Core/Utils/BCFLib/Topic.h>
#include <Core/Utils/BCFLib/Viewpoint.h>

using BCFLib::Viewpoint;

ViewpointChooser::ViewpointChooser(QWidget *parent)
    : QComboBox(parent)
{
    setObjectName(QStringLiteral("viewpointChooser"));
    setToolTip(tr("The view that the comment speaks of"));
    setTopic(nullptr);
}

void ViewpointChooser::setTopic(const BCFLib::Topic *topic)
{
    _topic = topic;
    clear();
    addItem(tr("No view"));
    const int count = topic ? topic->viewpoints().size() : 0;
    for (int number = 1; number <= count; ++number) {
        addItem(DisplayText::viewName(number));
    }
    setEnabled(count > 0);
}

Viewpoint *ViewpointChooser::viewpoint() const
{
    return currentIndex() > 0 ? _topic->viewpoints().value(currentIndex() - 1) : nullptr;
}

void ViewpointChooser::setViewpoint(const Viewpoint *viewpoint)
{
    setCurrentIndex(_topic ? _topic->viewpoints().indexOf(const_cast<Viewpoint *>(viewpoint)) + 1 : 0);
}
