#include "AboutWindow.h"

#include "ShellContent.h"
#include "StageWrightApp.h"
#include "Windows.h"

#include <stagewright/state/AppPreferences.h>

#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>

#include <utility>

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

AboutWindow::AboutWindow(AppPreferences* preferences, QWidget* parent) : QWidget(parent, Qt::Window)
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

    auto* licence = new QLabel(licenceLine(), this);
    licence->setObjectName(QStringLiteral("licenceLine"));
    licence->setAlignment(Qt::AlignCenter);
    licence->setWordWrap(true);

    const auto link = [this](const QString& objectName, const QString& text) {
        auto* label = new QLabel(this);
        label->setObjectName(objectName);
        label->setProperty("title", text);
        m_links.append(label);
        label->setOpenExternalLinks(true);
        label->setAlignment(Qt::AlignCenter);
        return label;
    };
    m_developerLink = link(QStringLiteral("developerLink"), tr("Developer Website"));
    m_documentationLink = link(QStringLiteral("documentationLink"), tr("Documentation Website"));
    addressLinks();
    if (preferences)
        connect(preferences, &AppPreferences::addressesChanged, this, &AboutWindow::addressLinks);

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
    layout->addWidget(m_developerLink);
    layout->addWidget(m_documentationLink);
    layout->addSpacing(10);
    layout->addWidget(licence);
    layout->addSpacing(6);
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

void AboutWindow::addressLinks()
{
    for (const auto& [label, address] :
         {std::pair{m_developerLink, developerSite()}, std::pair{m_documentationLink, documentationSite()}}) {
        label->setProperty("address", address);
        label->setToolTip(address);
        showLink(label);
    }
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
    const auto known = [](const QString& text) { return text.isEmpty() ? QStringLiteral("N/A") : text; };
    return tr("Version %1 (%2)").arg(known(QCoreApplication::applicationVersion()), known(applicationBuildVersion()));
}

QString AboutWindow::copyrightLine()
{
    return tr("Copyright © 2026 the StageWright developers");
}

QString AboutWindow::licenceLine()
{
    return tr("StageWright and the Tessaro library are free software under the MIT licence.");
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
