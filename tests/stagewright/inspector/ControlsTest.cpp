// The section header, the multiple choice and the image picker, clicked as a
// user clicks them; thumbnails decoded off the main thread and kept.
#include <stagewright/inspector/controls/ImagePicker.h>
#include <stagewright/inspector/controls/MultiSelectCombo.h>
#include <stagewright/inspector/controls/SectionHeader.h>

#include "support/DiagnosticCapture.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QDateTime>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

namespace stagewright {
namespace {

FileItem imageFile(const testing_support::TempDir& dir, const QString& name, QSize size)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::red);
    FileItem item;
    item.folder = QString::fromStdString(dir.folder());
    item.name = name;
    item.type = QStringLiteral("png");
    item.sceneObjectType = tessaro::sceneObjectType::coin;
    EXPECT_TRUE(image.save(item.path()));
    return item;
}

TEST(Controls, SectionHeaderFlipsOnClickOnly)
{
    SectionHeader header(QStringLiteral("Sounds"), true);
    QSignalSpy toggled(&header, &SectionHeader::toggled);
    auto* state = header.findChild<QLabel*>(QStringLiteral("sectionState"));
    ASSERT_NE(state, nullptr);
    EXPECT_EQ(state->text(), QStringLiteral("Hide"));

    header.findChild<QPushButton*>(QStringLiteral("sectionHeaderButton"))->click();
    ASSERT_EQ(toggled.count(), 1);
    EXPECT_FALSE(toggled.takeFirst().at(0).toBool());
    EXPECT_EQ(state->text(), QStringLiteral("Show"));

    header.setOn(true);
    EXPECT_EQ(toggled.count(), 0);
    EXPECT_EQ(state->text(), QStringLiteral("Hide"));

    SectionHeader quiet(QStringLiteral("Properties"), false, QStringLiteral("Hide"), QStringLiteral("Show"), true);
    EXPECT_TRUE(quiet.findChild<QLabel*>(QStringLiteral("sectionState"))->isHidden());

    InfoTipView tip(QStringLiteral("Uses **bold** text"));
    tip.show();
    EXPECT_FALSE(tip.isPopover());
    tip.findChild<QAbstractButton*>(QStringLiteral("infoTipButton"))->click();
    EXPECT_TRUE(tip.isPopover());
    auto* text = tip.findChild<QLabel*>(QStringLiteral("infoTipText"));
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->textFormat(), Qt::MarkdownText);
}

TEST(Controls, MultipleChoiceKeepsTheOrderOfTheClicks)
{
    CustomMultiSelectCombo combo(QStringLiteral("Action"), {"all", "attack", "death", "idle"});
    combo.show();
    QSignalSpy changed(&combo, &CustomMultiSelectCombo::valuesChanged);
    combo.setValues({"idle"});
    EXPECT_EQ(changed.count(), 0);

    combo.findChild<QPushButton*>(QStringLiteral("multiSelectButton"))->click();
    ASSERT_TRUE(combo.isPopover());
    QListWidget* list = combo.popoverList();
    ASSERT_EQ(list->count(), 4);
    EXPECT_EQ(list->width(), 350);
    auto clickItem = [&](int row) {
        const QRect area = list->visualItemRect(list->item(row));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, area.center());
    };
    clickItem(2); // death
    clickItem(0); // all
    clickItem(2); // death again
    clickItem(3); // idle
    ASSERT_EQ(changed.count(), 4);
    EXPECT_EQ(combo.values(), QStringList{QStringLiteral("all")});
    EXPECT_EQ(changed.last().at(0).toStringList(), QStringList{QStringLiteral("all")});
    EXPECT_EQ(combo.findChild<QLabel*>(QStringLiteral("multiSelectText"))->text(), QStringLiteral("all"));
}

TEST(Controls, ThumbnailsArriveOnTheMainThreadAndAreKeptUntilTheFileChanges)
{
    testing_support::TempDir dir;
    const FileItem wide = imageFile(dir, QStringLiteral("wide"), {40, 20});
    ThumbnailCache& cache = ThumbnailCache::instance();
    cache.clear();

    QObject receiver;
    QImage delivered;
    bool onMainThread = false;
    const QSize box(60, 60);
    EXPECT_TRUE(cache
                    .request(wide.path(), box, &receiver,
                             [&](const QImage& image) {
                                 delivered = image;
                                 onMainThread = QThread::currentThread() == receiver.thread();
                             })
                    .isNull());
    QTRY_VERIFY(!delivered.isNull());
    EXPECT_TRUE(onMainThread);
    // Fitted into the box with its proportions.
    EXPECT_EQ(delivered.size(), QSize(60, 30));

    int calls = 0;
    const QImage kept = cache.request(wide.path(), box, &receiver, [&](const QImage&) { ++calls; });
    EXPECT_EQ(kept.size(), QSize(60, 30));
    EXPECT_EQ(calls, 0);

    // A new file of the same name is decoded anew.
    imageFile(dir, QStringLiteral("wide"), {20, 40});
    QFile rewritten(wide.path());
    ASSERT_TRUE(rewritten.open(QIODevice::ReadWrite));
    rewritten.setFileTime(QDateTime::currentDateTime().addSecs(5), QFileDevice::FileModificationTime);
    rewritten.close();
    QImage renewed;
    EXPECT_TRUE(cache.request(wide.path(), box, nullptr, [&](const QImage& image) { renewed = image; }).isNull());
    QTRY_VERIFY(!renewed.isNull());
    EXPECT_EQ(renewed.size(), QSize(30, 60));

    // A receiver that is gone is not called.
    const FileItem tall = imageFile(dir, QStringLiteral("tall"), {10, 30});
    bool called = false;
    {
        QObject shortLived;
        cache.request(tall.path(), box, &shortLived, [&](const QImage&) { called = true; });
    }
    QTRY_COMPARE(cache.pending(), 0);
    EXPECT_FALSE(called);
}

TEST(Controls, ImagePickerGridChoosesByClickAndShowsFailuresEmpty)
{
    testing_support::TempDir dir;
    const FileItem coin = imageFile(dir, QStringLiteral("coin"), {20, 20});
    FileItem broken = coin;
    broken.name = QStringLiteral("broken");
    dir.write("broken.png", "not a picture");
    testing_support::DiagnosticCapture lines;

    CustomImagePickerView picker;
    picker.show();
    QSignalSpy chosen(&picker, &CustomImagePickerView::imageChosen);
    picker.setItems({broken, coin});
    picker.setValue(QStringLiteral("old"));
    EXPECT_EQ(chosen.count(), 0);

    picker.findChild<QPushButton*>(QStringLiteral("imagePickerButton"))->click();
    ASSERT_TRUE(picker.isPopover());
    const QList<QAbstractButton*> cells = picker.findChildren<QAbstractButton*>(QStringLiteral("imageCell"));
    ASSERT_EQ(cells.size(), 2);
    EXPECT_EQ(cells[0]->toolTip(), QStringLiteral("broken"));
    EXPECT_EQ(cells[1]->toolTip(), QStringLiteral("coin"));
    // Both sit on one line of the grid.
    EXPECT_EQ(cells[0]->y(), cells[1]->y());

    auto* good = cells[1]->findChild<ImagePreview*>();
    auto* bad = cells[0]->findChild<ImagePreview*>();
    QTRY_VERIFY(!good->image().isNull());
    QTRY_COMPARE(ThumbnailCache::instance().pending(), 0);
    EXPECT_TRUE(bad->image().isNull());
    EXPECT_TRUE(lines.anyStartsWith("loadNSImagePreview: "));

    QTest::mouseClick(cells[1], Qt::LeftButton);
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen.takeFirst().at(0).toString(), QStringLiteral("coin"));
    EXPECT_EQ(picker.value(), QStringLiteral("coin"));
    EXPECT_FALSE(picker.isPopover());
}

} // namespace
} // namespace stagewright
