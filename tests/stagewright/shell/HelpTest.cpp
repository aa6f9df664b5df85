// The help file the program carries, its reading rules, and the help window's
// table and search.
#include "ShellTestSupport.h"

#include "support/DiagnosticCapture.h"

#include <stagewright/shell/HelpTopics.h>
#include <stagewright/shell/HelpWindow.h>

#include <QLineEdit>
#include <QSet>
#include <QTreeWidget>

namespace stagewright::test {

namespace {

QByteArray helpFile(const QString& entries)
{
    return (QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><array>") + entries +
            QStringLiteral("</array></plist>"))
        .toUtf8();
}

QString entry(const QString& category, const QString& topic, const QString& answer, const QString& id = {})
{
    QString text = QStringLiteral("<dict><key>category</key><string>%1</string>"
                                  "<key>helpTopic</key><string>%2</string>")
                       .arg(category, topic);
    if (!answer.isNull())
        text += QStringLiteral("<key>answer</key><string>%1</string>").arg(answer);
    if (!id.isEmpty())
        text += QStringLiteral("<key>id</key><string>%1</string>").arg(id);
    return text + QStringLiteral("</dict>");
}

} // namespace

TEST(HelpTopicsTest, EveryBundledTopicLoadsAndTheSubjectsAreCovered)
{
    testing_support::DiagnosticCapture lines;
    const std::vector<HelpTopic> topics = readHelpTopics();
    EXPECT_TRUE(lines.lines().empty());
    ASSERT_GE(topics.size(), 10u);
    QSet<QString> categories;
    QSet<QUuid> ids;
    for (const HelpTopic& topic : topics) {
        EXPECT_FALSE(topic.helpTopic.trimmed().isEmpty());
        EXPECT_GT(topic.answer.size(), 80) << topic.helpTopic.toStdString();
        EXPECT_FALSE(topic.id.isNull());
        categories << topic.category;
        ids << topic.id;
    }
    EXPECT_EQ(ids.size(), qsizetype(topics.size()));
    for (const char* subject : {"Workspace", "Projects and levels", "Canvas", "Inspector", "Per-device values",
                                "Physics shapes", "Sounds", "Playing a level", "Command-line tool"})
        EXPECT_TRUE(categories.contains(QString::fromLatin1(subject))) << subject;
}

TEST(HelpTopicsTest, AMissingAnswerFailsTheFileAndAMissingIdIsMadeAnew)
{
    const QString id = QStringLiteral("0E5C0C39-6E58-4F3E-9D57-2C4E0B1B7A11");
    QString error;
    const QByteArray good = helpFile(entry(QStringLiteral("A"), QStringLiteral("First"), QStringLiteral("one"), id) +
                                     entry(QStringLiteral("B"), QStringLiteral("Second"), QStringLiteral("two")));
    const std::vector<HelpTopic> once = decodeHelpTopics(good, &error);
    const std::vector<HelpTopic> twice = decodeHelpTopics(good, &error);
    EXPECT_TRUE(error.isEmpty());
    ASSERT_EQ(once.size(), 2u);
    EXPECT_EQ(once[0].id, QUuid::fromString(id));
    EXPECT_EQ(once[0].id, twice[0].id);
    EXPECT_FALSE(once[1].id.isNull());
    EXPECT_NE(once[1].id, twice[1].id);
    EXPECT_EQ(once[1].answer, QStringLiteral("two"));

    // One entry without an answer, or a file that is no list of entries,
    // leaves nothing at all.
    for (const QByteArray& bad :
         {helpFile(entry(QStringLiteral("A"), QStringLiteral("First"), QStringLiteral("one")) +
                   entry(QStringLiteral("B"), QStringLiteral("Second"), QString())),
          helpFile(entry(QStringLiteral("A"), QStringLiteral("First"), QStringLiteral("one"), QStringLiteral("x"))),
          QByteArray("<plist version=\"1.0\"><dict/></plist>"), QByteArray("garbage")}) {
        error.clear();
        EXPECT_TRUE(decodeHelpTopics(bad, &error).empty()) << bad.constData();
        EXPECT_FALSE(error.isEmpty());
    }
    testing_support::DiagnosticCapture lines;
    EXPECT_TRUE(readHelpTopics(QStringLiteral("/nonexistent/HelpFAQ.plist")).empty());
    EXPECT_TRUE(lines.anyStartsWith("Help configuration error: "));
}

TEST(HelpWindowTest, TableStartsByCategoryAndSearchKeepsTopicsNamingEveryWord)
{
    HelpWindow window;
    window.show();
    QTreeWidget* table = window.table();
    ASSERT_EQ(table->topLevelItemCount(), int(window.topics().size()));
    for (int i = 1; i < table->topLevelItemCount(); ++i)
        EXPECT_LE(table->topLevelItem(i - 1)->text(0).localeAwareCompare(table->topLevelItem(i)->text(0)), 0);

    // A word that only an answer holds finds its topic.
    window.searchField()->setText(QStringLiteral("roundtrip"));
    EXPECT_EQ(window.visibleTopics(), QStringList{QStringLiteral("What does stagewright-cli do?")});
    EXPECT_EQ(window.shownTitle(), QStringLiteral("What does stagewright-cli do?"));
    EXPECT_TRUE(window.shownDescription().contains(QStringLiteral("stagewright-cli render")));

    // Every word must occur, in any case and in any field.
    window.searchField()->setText(QStringLiteral("CTRL+R  tessaro-play"));
    const QStringList both = window.visibleTopics();
    EXPECT_TRUE(both.contains(QStringLiteral("How do I try a level?")));
    window.searchField()->setText(QStringLiteral("Ctrl+R workspace-that-is-nowhere"));
    EXPECT_TRUE(window.visibleTopics().isEmpty());
    // The last topic shown stays while nothing matches.
    EXPECT_FALSE(window.shownTitle().isEmpty());

    window.searchField()->clear();
    EXPECT_EQ(window.visibleTopics().size(), table->topLevelItemCount());
}

} // namespace stagewright::test
