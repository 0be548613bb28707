#pragma once

#include <QComboBox>

namespace BCFLib {
class Topic;
class Viewpoint;
}

/// Lets the user choose one of a topic's viewpoints, or none.
class ViewpointChooser : public QComboBox
{
    Q_OBJECT

public:
    explicit ViewpointChooser(QWidget *parent = nullptr);

    /// Offers the viewpoints of another topic, which has to outlive its being offered; null for none.
    void setTopic(const BCFLib::Topic *topic);
    /// The chosen viewpoint, or null.
    BCFLib::Viewpoint *viewpoint() const;
    /// Chooses a viewpoint of the topic; null for none.
    void setViewpoint(const BCFLib::Viewpoint *viewpoint);

private:
    const BCFLib::Topic *_topic = nullptr;
};
