// The step that sets one field of a level: only a real change is pushed,
// consecutive edits join only within the same field and run, undo and redo
// put the field back exactly, and a step shows its level first.
#include <stagewright/state/LevelDocument.h>
#include <stagewright/state/SetFieldCommand.h>

#include <tessaro/model/LevelRecords.h>

#include <QUndoStack>

#include <gtest/gtest.h>

namespace stagewright::test {
namespace {

using tessaro::FieldPath;

TEST(SetFieldTest, OnlyChangesArePushedAndRunsJoin)
{
    LevelDocument document;
    tessaro::Level level;
    level.id = tessaro::Uuid::create();
    level.coins.emplace().image = "gold";
    const tessaro::Uuid id = *level.id;
    document.replaceLevels({level});
    std::vector<std::string> changed;
    QObject::connect(&document, &LevelDocument::levelChanged,
                     [&](const tessaro::Uuid&, const FieldPath& path) { changed.push_back(path.text()); });
    std::vector<tessaro::Uuid> shown;
    QUndoStack history;
    const auto set = [&](const char* path, tessaro::FieldValue value, bool joins, std::string run = {}) {
        auto* step = new SetFieldCommand(document, id, FieldPath(path), std::move(value), QStringLiteral("Set"), joins);
        step->joinOnlyWithin(std::move(run));
        step->showLevelFirst([&](const tessaro::Uuid& levelId) { shown.push_back(levelId); });
        return pushStep(history, step);
    };
    const auto image = [&] { return document.levels().front().coins->image; };

    // The value already there, a field that is not there and a value of
    // another type are no steps, and keep the redo step below.
    ASSERT_TRUE(set("coins.image", std::string("silver"), false));
    history.undo();
    EXPECT_FALSE(set("coins.image", std::string("gold"), false));
    EXPECT_FALSE(set("shields.image", std::string("gold"), false));
    EXPECT_FALSE(set("coins.image", 3.0, false));
    EXPECT_TRUE(history.canRedo());
    history.redo();
    EXPECT_EQ(image(), "silver");

    // Typing joins within one field and run; another run is another step.
    ASSERT_TRUE(set("coins.startCoinNumber", std::int64_t(1), true, "a"));
    ASSERT_TRUE(set("coins.startCoinNumber", std::int64_t(12), true, "a"));
    ASSERT_TRUE(set("coins.startCoinNumber", std::int64_t(3), true, "b"));
    EXPECT_EQ(history.count(), 3);
    history.undo();
    EXPECT_EQ(document.levels().front().coins->startCoinNumber, 12);
    history.undo();
    // Undo puts back the absence, not an empty value.
    EXPECT_FALSE(document.levels().front().coins->startCoinNumber);
    history.undo();
    EXPECT_EQ(image(), "gold");
    EXPECT_EQ(shown.size(), 5u); // each undo and redo after the first run showed the level
    EXPECT_EQ(changed.back(), "coins.image");
}

} // namespace
} // namespace stagewright::test
