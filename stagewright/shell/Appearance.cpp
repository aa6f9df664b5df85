#include "Appearance.h"

#include <stagewright/state/SceneSettings.h>

#include <QApplication>
#include <QStyle>
#include <QStyleFactory>

namespace stagewright {

QPalette darkPalette()
{
    QPalette p;
    const QColor window(45, 45, 48);
    const QColor base(30, 30, 32);
    const QColor text(228, 228, 230);
    const QColor dimText(128, 128, 132);
    p.setColor(QPalette::Window, window);
    p.setColor(QPalette::WindowText, text);
    p.setColor(QPalette::Base, base);
    p.setColor(QPalette::AlternateBase, QColor(38, 38, 41));
    p.setColor(QPalette::ToolTipBase, QColor(60, 60, 64));
    p.setColor(QPalette::ToolTipText, text);
    p.setColor(QPalette::PlaceholderText, dimText);
    p.setColor(QPalette::Text, text);
    p.setColor(QPalette::Button, QColor(58, 58, 62));
    p.setColor(QPalette::ButtonText, text);
    p.setColor(QPalette::BrightText, Qt::white);
    p.setColor(QPalette::Light, QColor(75, 75, 80));
    p.setColor(QPalette::Midlight, QColor(65, 65, 70));
    p.setColor(QPalette::Mid, QColor(40, 40, 43));
    p.setColor(QPalette::Dark, QColor(25, 25, 27));
    p.setColor(QPalette::Shadow, Qt::black);
    p.setColor(QPalette::Highlight, QColor(10, 110, 220));
    p.setColor(QPalette::HighlightedText, Qt::white);
    p.setColor(QPalette::Link, QColor(90, 160, 255));
    p.setColor(QPalette::LinkVisited, QColor(160, 130, 255));
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        p.setColor(QPalette::Disabled, role, dimText);
    p.setColor(QPalette::Disabled, QPalette::Button, QColor(50, 50, 54));
    p.setColor(QPalette::Disabled, QPalette::Highlight, QColor(80, 80, 84));
    return p;
}

QPalette lightPalette()
{
    QStyle* style = QApplication::style();
    return style ? style->standardPalette() : QPalette();
}

Appearance::Appearance(SceneSettings& settings, QObject* parent) : QObject(parent)
{
    // One style on every desktop, so that both palettes look as designed.
    if (QStyle* fusion = QStyleFactory::create(QStringLiteral("Fusion")))
        QApplication::setStyle(fusion);
    apply(settings.isDark());
    connect(&settings, &SceneSettings::isDarkChanged, this, [&settings] { apply(settings.isDark()); });
}

void Appearance::apply(bool dark)
{
    QApplication::setPalette(dark ? darkPalette() : lightPalette());
}

} // namespace stagewright
