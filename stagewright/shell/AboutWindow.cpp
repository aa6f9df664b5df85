#include "AboutWindow.h"

#include "ShellContent.h"
#include "Windows.h"

#include <stagewright/state/AppPreferences.h>

#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace stagewright {

const std::vector<UsedLibrary>& usedLibraries()
{
    static const std::vector<UsedLibrary> libraries{
        {QStringLiteral("Qt %1").arg(QString::fromLatin1(qVersion())), QStringLiteral("LGPLv3"),
         QStringLiteral("windows, images, sound, settings, network")},
        {QStringLiteral("Box2D"), QStringLiteral("MIT"), QStringLiteral("physics of the game library")},
        {QStringLiteral("pugixml"), QStringLiteral("MIT"), QStringLiteral("reading property lists")},
        {QStringLiteral("libplist"), QStringLiteral("LGPL-2.1"), QStringLiteral("property lists, binary ones too")},
        {QStringLiteral("SQLite"), QStringLiteral("Public domain"), QStringLiteral("the workspace's settings store")},
        {QStringLiteral("GoogleTest"), QStringLiteral("BSD-3-Clause"), QStringLiteral("the tests (not shipped)")},
        {QStringLiteral("Google Benchmark"), QStringLiteral("Apache-2.0"),
         QStringLiteral("the benchmarks (not shipped)")},
    };
    return libraries;
}

AboutWindow::AboutWindow(QWidget* parent) : QWidget(parent, Qt::Window)
{
    setObjectName(WindowId::about);
    setWindowTitle(tr("About StageWright"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(40, 24, 40, 24);
    layout->setSpacing(6);

    auto* image = new QLabel(this);
    image->setObjectName(QStringLiteral("productLogo"));
    image->setPixmap(applicationImage(128));
    image->setAlignment(Qt::AlignCenter);

    auto* name = new QLabel(tr("Tessaro - StageWright"), this);
    QFont font = name->font();
    font.setPointSizeF(font.pointSizeF() * 1.6);
    font.setBold(true);
    name->setFont(font);
    name->setAlignment(Qt::AlignCenter);

    auto* version = new QLabel(versionLine(), this);
    version->setObjectName(QStringLiteral("versionLine"));
    version->setAlignment(Qt::AlignCenter);
    auto* copyright = new QLabel(copyrightLine(), this);
    copyright->setAlignment(Qt::AlignCenter);

    const auto link = [this](const QString& text, const QString& address) {
        auto* label = new QLabel(this);
        label->setProperty("address", address);
        label->setProperty("title", text);
        m_links.append(label);
        showLink(label);
        label->setOpenExternalLinks(true);
        label->setAlignment(Qt::AlignCenter);
        label->setToolTip(address);
        return label;
    };

    QString rows;
    for (const UsedLibrary& library : usedLibraries())
        rows += QStringLiteral("<tr><td><b>%1</b></td><td>%2</td><td>%3</td></tr>")
                    .arg(library.name.toHtmlEscaped(), library.licence.toHtmlEscaped(), library.use.toHtmlEscaped());
    auto* libraries = new QLabel(
        QStringLiteral("<table cellspacing=\"0\" cellpadding=\"3\">") + rows + QStringLiteral("</table>"), this);
    libraries->setObjectName(QStringLiteral("usedLibraries"));
    libraries->setTextFormat(Qt::RichText);

    layout->addWidget(image);
    layout->addWidget(name);
    layout->addWidget(version);
    layout->addWidget(copyright);
    layout->addSpacing(6);
    layout->addWidget(link(tr("Developer Website"), developerSite()));
    layout->addWidget(link(tr("Documentation Website"), documentationSite()));
    layout->addSpacing(10);
    layout->addWidget(new QLabel(tr("StageWright is built with:"), this));
    layout->addWidget(libraries);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void AboutWindow::showLink(QLabel* label) const
{
    label->setText(QStringLiteral("<a href=\"%1\" style=\"color: %2\">%3</a>")
                       .arg(label->property("address").toString().toHtmlEscaped(),
                            palette().color(QPalette::Link).name(),
                            label->property("title").toString().toHtmlEscaped()));
}

void AboutWindow::changeEvent(QEvent* event)
{
    // Links take their colour when their text is laid out: lay them out
    // again in the colours of the new appearance.
    if (event->type() == QEvent::PaletteChange)
        for (QLabel* label : std::as_const(m_links))
            showLink(label);
    QWidget::changeEvent(event);
}

QString AboutWindow::versionLine()
{
    QString version = QCoreApplication::applicationVersion();
    if (version.isEmpty())
        version = QStringLiteral("N/A");
    return tr("Version %1 (%2)").arg(version, version);
}

QString AboutWindow::copyrightLine()
{
    return tr("Copyright © 2026 the StageWright developers");
}

QString AboutWindow::developerSite()
{
    return AppPreferences::serverAddress() + QLatin1Char('/');
}

QString AboutWindow::documentationSite()
{
    return AppPreferences::serverAddress() + QStringLiteral("/doc");
}

} // namespace stagewright
