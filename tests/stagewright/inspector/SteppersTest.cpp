// The steppers driven as a user drives them: buttons clicked and held, numbers
// typed, Escape; and values set by the model, which report nothing.
#include <stagewright/inspector/controls/StepperParts.h>
#include <stagewright/inspector/controls/Steppers.h>

#include <tessaro/model/ValueText.h>

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <limits>
#include <memory>

namespace stagewright {
namespace {

using detail::NumberGroup;

NumberGroup* group(QWidget& stepper, const char* name)
{
    auto* found = stepper.findChild<NumberGroup*>(QLatin1String(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
}

void type(NumberGroup* numbers, const QString& text)
{
    numbers->field()->selectAll();
    QTest::keyClicks(numbers->field(), text);
    QTest::keyClick(numbers->field(), Qt::Key_Return);
}

void hold(QToolButton* button, int milliseconds)
{
    QTest::mousePress(button, Qt::LeftButton);
    QTest::qWait(milliseconds);
    QTest::mouseRelease(button, Qt::LeftButton);
}

void show(QWidget& widget)
{
    widget.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
}

TEST(Steppers, FloatStepperStepsPastTheEndAndPutsBackTypedValuesOutside)
{
    LabelledCGFloatStepper stepper(QStringLiteral("Alpha"), QString(), {0, 1}, 0.05, 2);
    show(stepper);
    QSignalSpy changed(&stepper, &LabelledCGFloatStepper::valueChanged);
    NumberGroup* numbers = group(stepper, "value");

    stepper.setValue(0.98);
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(numbers->field()->text(), stepper::floatText(0.98, 2));
    numbers->plusButton()->click();
    ASSERT_EQ(changed.count(), 1);
    EXPECT_DOUBLE_EQ(changed.takeFirst().at(0).toDouble(), 1.03);
    EXPECT_FALSE(numbers->plusButton()->isEnabled());
    EXPECT_TRUE(numbers->minusButton()->isEnabled());

    // Outside the range, and no number at all: the old value comes back.
    type(numbers, QStringLiteral("1.5"));
    type(numbers, QStringLiteral("abc"));
    EXPECT_EQ(changed.count(), 0);
    EXPECT_DOUBLE_EQ(stepper.value(), 1.03);
    EXPECT_EQ(numbers->field()->text(), stepper::floatText(1.03, 2));

    type(numbers, QStringLiteral("0"));
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed.takeFirst().at(0).toDouble(), 0);
    EXPECT_FALSE(numbers->minusButton()->isEnabled());
    // The same number again is no change.
    type(numbers, QStringLiteral("0"));
    EXPECT_EQ(changed.count(), 0);
}

TEST(Steppers, ClosingWhileTypingReportsNothing)
{
    auto stepper = std::make_unique<LabelledCGFloatStepper>(QString(), QString(), tessaro::RangeValue{0, 1}, 0.1);
    show(*stepper);
    QSignalSpy changed(stepper.get(), &LabelledCGFloatStepper::valueChanged);
    NumberGroup* numbers = group(*stepper, "value");
    numbers->field()->setFocus();
    numbers->field()->selectAll();
    QTest::keyClicks(numbers->field(), QStringLiteral("0.5"));
    // Going away hides the field, which ends its editing.
    stepper.reset();
    EXPECT_EQ(changed.count(), 0);
}

TEST(Steppers, HeldButtonSendsOneChangePerRepeatAndStopsAtTheEnd)
{
    LabelledIntStepper open(QString(), QString(), 0, 1000, 1);
    show(open);
    QSignalSpy changes(&open, &LabelledIntStepper::valueChanged);
    hold(group(open, "value")->plusButton(), 900);
    ASSERT_GE(changes.count(), 3);
    for (int i = 0; i < changes.count(); ++i)
        EXPECT_EQ(changes.at(i).at(0).value<std::int64_t>(), i + 1);
    EXPECT_EQ(open.value(), changes.count());

    LabelledIntStepper bounded(QString(), QString(), 0, 3, 1);
    show(bounded);
    QSignalSpy boundedChanges(&bounded, &LabelledIntStepper::valueChanged);
    NumberGroup* numbers = group(bounded, "value");
    hold(numbers->plusButton(), 1200);
    EXPECT_EQ(bounded.value(), 3);
    EXPECT_EQ(boundedChanges.count(), 3);
    EXPECT_FALSE(numbers->plusButton()->isEnabled());

    // Typing is not held to the range.
    type(numbers, QStringLiteral("5000"));
    EXPECT_EQ(bounded.value(), 5000);
    EXPECT_EQ(boundedChanges.count(), 4);
}

TEST(Steppers, RangeStepperEscapeAndButtons)
{
    LabelledRangeStepper stepper(QString(), QString(), {0, std::numeric_limits<double>::max()}, StepperPrecision::Int);
    show(stepper);
    QSignalSpy lowerChanged(&stepper, &LabelledRangeStepper::lowerChanged);
    QSignalSpy upperChanged(&stepper, &LabelledRangeStepper::upperChanged);
    NumberGroup* lower = group(stepper, "lower");
    NumberGroup* upper = group(stepper, "upper");

    stepper.setBounds(2, 9);
    EXPECT_EQ(upper->field()->text(), QStringLiteral("9"));
    QTest::keyClick(upper->field(), Qt::Key_Escape);
    ASSERT_EQ(upperChanged.count(), 1);
    EXPECT_EQ(upperChanged.takeFirst().at(0).toDouble(), 2);
    EXPECT_EQ(stepper.upper(), 2);
    EXPECT_EQ(upper->field()->text(), QStringLiteral("2"));
    // Equal bounds: Escape changes nothing, and neither may pass the other.
    QTest::keyClick(upper->field(), Qt::Key_Escape);
    EXPECT_EQ(upperChanged.count(), 0);
    EXPECT_FALSE(lower->plusButton()->isEnabled());
    EXPECT_FALSE(upper->minusButton()->isEnabled());

    upper->plusButton()->click();
    lower->plusButton()->click();
    EXPECT_EQ(upperChanged.count(), 1);
    ASSERT_EQ(lowerChanged.count(), 1);
    EXPECT_EQ(lowerChanged.takeFirst().at(0).toDouble(), 3);
    EXPECT_EQ(stepper.lower(), 3);
    EXPECT_EQ(stepper.upper(), 3);
}

TEST(Steppers, SizeStepperKeepsTheRatioTakenWhenTheToggleTurnsOn)
{
    LabelledSizeStepper stepper(QString(), QString(), false, true);
    show(stepper);
    QSignalSpy changed(&stepper, &LabelledSizeStepper::valueChanged);
    auto* toggle = stepper.findChild<QCheckBox*>(QStringLiteral("maintainAspectRatio"));
    ASSERT_NE(toggle, nullptr);
    EXPECT_EQ(toggle->text(), QStringLiteral("Maintain aspect ratio"));

    stepper.setValue({100, 0});
    toggle->click();
    EXPECT_TRUE(stepper.toggleIsOn());
    EXPECT_EQ(stepper.aspectRatio(), 100);
    type(group(stepper, "width"), QStringLiteral("50"));
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(stepper.value(), (tessaro::SizeValue{50, 0.5}));
    group(stepper, "height")->plusButton()->click();
    EXPECT_EQ(stepper.value(), (tessaro::SizeValue{150, 1.5}));

    toggle->click();
    type(group(stepper, "height"), QStringLiteral("7"));
    EXPECT_EQ(stepper.value(), (tessaro::SizeValue{150, 7}));
    EXPECT_EQ(changed.count(), 3);
}

TEST(Steppers, PointRangeStepperWritesTheTextAfterEachChange)
{
    LabelledPointRangeStepper stepper(QString(), QString(), QStringLiteral("{<0.0...40.0>,<-5.0...5.0>}"), 1,
                                      {-100, 100});
    show(stepper);
    QSignalSpy changed(&stepper, &LabelledPointRangeStepper::valueChanged);
    EXPECT_EQ(group(stepper, "yLower")->field()->text(), QStringLiteral("-5"));

    group(stepper, "xUpper")->plusButton()->click();
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed.takeFirst().at(0).toString(), QStringLiteral("{<0.0...41.0>,<-5.0...5.0>}"));

    type(group(stepper, "yLower"), QStringLiteral("-500"));
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(group(stepper, "yLower")->field()->text(), QStringLiteral("-5"));

    type(group(stepper, "yLower"), QStringLiteral("-2.5"));
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(stepper.value(), QStringLiteral("{<0.0...41.0>,<-2.5...5.0>}"));
    const tessaro::RangeValue y = tessaro::rangeFromText("<-2.5...5.0>");
    EXPECT_EQ(y, (tessaro::RangeValue{-2.5, 5}));

    // A value from the model reports nothing and gives the bounds anew.
    changed.clear();
    stepper.setValue(QStringLiteral("{<1...2>}"));
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(group(stepper, "xLower")->field()->text(), QStringLiteral("1"));
    EXPECT_EQ(group(stepper, "yUpper")->field()->text(), QStringLiteral("0"));
}

TEST(Steppers, ValuesFromTheModelReportNothing)
{
    LabelledCGFloatStepper floats(QString(), QString(), {0, 10}, 1);
    LabelledIntStepper ints(QString(), QString(), 0, 10, 1);
    LabelledRangeStepper range(QString(), QString(), {0, 10}, StepperPrecision::CGFloat);
    LabelledVectorStepper vector{QString(), QString()};
    LabelledSizeStepper size(QString(), QString(), true, false);
    LabelledPointStepper point(QString(), QString(), 5, {-10, 10}, true);
    QSignalSpy floatSpy(&floats, &LabelledCGFloatStepper::valueChanged);
    QSignalSpy intSpy(&ints, &LabelledIntStepper::valueChanged);
    QSignalSpy lowerSpy(&range, &LabelledRangeStepper::lowerChanged);
    QSignalSpy upperSpy(&range, &LabelledRangeStepper::upperChanged);
    QSignalSpy vectorSpy(&vector, &LabelledVectorStepper::valueChanged);
    QSignalSpy sizeSpy(&size, &LabelledSizeStepper::valueChanged);
    QSignalSpy pointSpy(&point, &LabelledPointStepper::valueChanged);

    floats.setValue(4);
    ints.setValue(4);
    range.setBounds(1, 4);
    vector.setValue({1, 2});
    size.setValue({3, 4});
    point.setValue({10, -10});
    for (QSignalSpy* spy : {&floatSpy, &intSpy, &lowerSpy, &upperSpy, &vectorSpy, &sizeSpy, &pointSpy})
        EXPECT_EQ(spy->count(), 0);

    EXPECT_EQ(group(range, "upper")->field()->text(), stepper::fixedText(4, 1));
    EXPECT_EQ(group(size, "width")->findChild<QLabel*>(QStringLiteral("caption"))->text(), QStringLiteral("w"));
    // The point's fields are closed to typing; its buttons stop at the ends.
    NumberGroup* x = group(point, "x");
    EXPECT_FALSE(x->field()->isEnabled());
    EXPECT_FALSE(x->plusButton()->isEnabled());
    EXPECT_FALSE(group(point, "y")->minusButton()->isEnabled());
    x->minusButton()->click();
    EXPECT_EQ(point.value(), (tessaro::PointValue{5, -10}));
    EXPECT_EQ(pointSpy.count(), 1);
}

TEST(Steppers, ColoursFollowAChangeOfAppearance)
{
    LabelledSizeStepper size(QStringLiteral("Size"), QString(), false, false);
    const QPalette before = QApplication::palette();
    QPalette dark = before;
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(role, QColor(240, 240, 240));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Window, QColor(40, 40, 40));
    QApplication::setPalette(dark);
    QCoreApplication::processEvents();
    NumberGroup* width = group(size, "width");
    // The number stays light on the dark field, the buttons and title too.
    EXPECT_GT(width->field()->palette().color(QPalette::Text).lightness(), 150);
    EXPECT_GT(width->plusButton()->palette().color(QPalette::Active, QPalette::ButtonText).lightness(), 150);
    EXPECT_GT(size.findChild<QLabel*>(QStringLiteral("title"))->palette().color(QPalette::WindowText).lightness(), 110);
    QApplication::setPalette(before);
    QCoreApplication::processEvents();
    EXPECT_LT(width->field()->palette().color(QPalette::Text).lightness(), 150);
}

} // namespace
} // namespace stagewright
