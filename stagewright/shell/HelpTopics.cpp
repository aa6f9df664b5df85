#include "HelpTopics.h"

#include "ShellContent.h"

#include <tessaro/model/Diagnostics.h>

#include <QFile>
#include <QRegularExpression>
#include <QStringList>

#include <plist/plist.h>

#include <cstdlib>
#include <memory>

namespace stagewright {

namespace {

struct PlistDeleter {
    void operator()(plist_t node) const { plist_free(node); }
};
using PlistPointer = std::unique_ptr<void, PlistDeleter>;

/// The text of a string node, or none for a missing node or another kind.
std::optional<QString> stringValue(plist_t node)
{
    if (!node || plist_get_node_type(node) != PLIST_STRING)
        return std::nullopt;
    char* value = nullptr;
    plist_get_string_val(node, &value);
    QString text = QString::fromUtf8(value ? value : "");
    std::free(value);
    return text;
}

} // namespace

QString bundledHelpFile()
{
    return shellContentPath(QStringLiteral("help/HelpFAQ.plist"));
}

std::vector<HelpTopic> decodeHelpTopics(const QByteArray& bytes, QString* error)
{
    const auto failure = [error](const QString& reason) {
        if (error)
            *error = reason;
        return std::vector<HelpTopic>{};
    };
    plist_t parsed = nullptr;
    if (!bytes.isEmpty())
        plist_from_memory(bytes.constData(), uint32_t(bytes.size()), &parsed);
    const PlistPointer root(parsed);
    if (!root)
        return failure(QStringLiteral("the file is no property list"));
    if (plist_get_node_type(root.get()) != PLIST_ARRAY)
        return failure(QStringLiteral("the root of the file is no array"));

    std::vector<HelpTopic> topics;
    const uint32_t count = plist_array_get_size(root.get());
    for (uint32_t i = 0; i < count; ++i) {
        plist_t entry = plist_array_get_item(root.get(), i);
        const QString where = QStringLiteral("entry %1").arg(i);
        if (plist_get_node_type(entry) != PLIST_DICT)
            return failure(where + QStringLiteral(" is no dictionary"));
        HelpTopic topic;
        struct Required {
            const char* key;
            QString* field;
        };
        for (const Required& required : {Required{"helpTopic", &topic.helpTopic}, Required{"answer", &topic.answer},
                                         Required{"category", &topic.category}}) {
            const std::optional<QString> value = stringValue(plist_dict_get_item(entry, required.key));
            if (!value)
                return failure(where + QStringLiteral(": no text for the key \"%1\"").arg(QLatin1String(required.key)));
            *required.field = *value;
        }
        if (plist_t idNode = plist_dict_get_item(entry, "id")) {
            const std::optional<QString> text = stringValue(idNode);
            topic.id = text ? QUuid::fromString(*text) : QUuid();
            if (topic.id.isNull())
                return failure(where + QStringLiteral(": the id is no UUID"));
        } else {
            topic.id = QUuid::createUuid();
        }
        topics.push_back(std::move(topic));
    }
    return topics;
}

std::vector<HelpTopic> readHelpTopics(const QString& path)
{
    QFile file(path);
    QString error;
    std::vector<HelpTopic> topics;
    if (!file.open(QIODevice::ReadOnly))
        error = file.errorString();
    else
        topics = decodeHelpTopics(file.readAll(), &error);
    if (!error.isEmpty())
        tessaro::diagnostic(("Help configuration error: " + error).toStdString());
    return topics;
}

bool topicMatches(const HelpTopic& topic, const QString& search)
{
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    const QStringList words = search.split(blanks, Qt::SkipEmptyParts);
    for (const QString& word : words) {
        if (!topic.helpTopic.contains(word, Qt::CaseInsensitive) && !topic.answer.contains(word, Qt::CaseInsensitive) &&
            !topic.category.contains(word, Qt::CaseInsensitive))
            return false;
    }
    return true;
}

} // namespace stagewright
