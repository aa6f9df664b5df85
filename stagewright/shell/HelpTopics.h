// The topics of the help window: read from the help file that the program
// carries, a property list whose root is an array of dictionaries with the
// keys "helpTopic", "answer", "category" and, optionally, "id".
#pragma once

#include <QByteArray>
#include <QString>
#include <QUuid>

#include <vector>

namespace stagewright {

struct HelpTopic {
    QUuid id; // a new one for an entry without "id"
    QString helpTopic; // the question
    QString answer;
    QString category;
};

/// The help file inside the program.
QString bundledHelpFile();

/// Decodes a help file; an entry that lacks a required key, or a value of
/// the wrong kind, fails the whole file: no topics and the reason in `error`.
std::vector<HelpTopic> decodeHelpTopics(const QByteArray& bytes, QString* error);
/// Reads a help file; on failure writes "Help configuration error: " and the
/// reason, and gives no topics.
std::vector<HelpTopic> readHelpTopics(const QString& path = bundledHelpFile());

/// Whether every word of `search` occurs in the topic's question, answer or
/// category, in any case. An empty search matches every topic.
bool topicMatches(const HelpTopic& topic, const QString& search);

} // namespace stagewright
