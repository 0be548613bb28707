#pragma once

#include <QHash>
#include <QString>

namespace BCFLib {
class BCFModel;
class Comment;
class Topic;
class Viewpoint;
}

class Report;

/// Prints the topics of a model, one after the other, with all that hangs below them.
class TopicPrinter
{
public:
    TopicPrinter(const BCFLib::BCFModel &model, Report &report);

    void printAll();

private:
    void print(const BCFLib::Topic &topic, int number, int count);
    void printFields(const BCFLib::Topic &topic);
    void printFiles(const BCFLib::Topic &topic);
    void printReferences(const BCFLib::Topic &topic);
    void printComments(const BCFLib::Topic &topic);
    void printComment(const BCFLib::Comment &comment);
    void printViewpoints(const BCFLib::Topic &topic);

    const BCFLib::BCFModel &_model;
    Report &_report;
    /// Titles of the model's topics by guid, for the links between topics.
    QHash<QString, QString> _titles;
    /// "comment 2" or "viewpoint 1" for what the comments of the present topic link to.
    QHash<const void *, QString> _numbers;
};
