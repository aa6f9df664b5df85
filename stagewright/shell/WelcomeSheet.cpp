#include "WelcomeSheet.h"

#include "ShellContent.h"

#include <stagewright/state/SceneSettings.h>
#include <stagewright/state/Workspace.h>

#include <QDialogButtonBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace stagewright {

namespace {

QFrame* box(QWidget* parent)
{
    auto* frame = new QFrame(parent);
    frame->setFrameShape(QFrame::StyledPanel);
    frame->setBackgroundRole(QPalette::Base);
    frame->setAutoFillBackground(true);
    return frame;
}

} // namespace

WelcomeSheet::WelcomeSheet(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("welcomeSheet"));
    setWindowTitle(tr("Welcome to StageWright"));
    setWindowModality(Qt::WindowModal);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 16);
    layout->setSpacing(12);

    QFrame* first = box(this);
    auto* firstLayout = new QVBoxLayout(first);
    auto* image = new QLabel(first);
    image->setPixmap(applicationImage(96));
    image->setAlignment(Qt::AlignCenter);
    auto* greeting =
        new QLabel(tr("Welcome to Tessaro - StageWright") + QStringLiteral("\n\n") +
                       tr("Create a level and assign background") + QLatin1Char('\n') + tr("and ground elements."),
                   first);
    greeting->setObjectName(QStringLiteral("welcomeGreeting"));
    greeting->setAlignment(Qt::AlignCenter);
    QFont font = greeting->font();
    font.setPointSizeF(font.pointSizeF() * 1.15);
    greeting->setFont(font);
    firstLayout->addWidget(image);
    firstLayout->addWidget(greeting);

    QFrame* second = box(this);
    auto* secondLayout = new QVBoxLayout(second);
    auto* hints =
        new QLabel(tr("• Get to know StageWright.\n\n"
                      "• Download Tessaro api directly from the Downloads menu.\n\n"
                      "• Download a sample workspace to get an idea of structure and execution.\n") +
                       tr("\n• You can always check for updates under the Check for Updates... menu option.\n"),
                   second);
    hints->setObjectName(QStringLiteral("welcomeHints"));
    hints->setWordWrap(true);
    secondLayout->addWidget(hints);

    auto* buttons = new QDialogButtonBox(this);
    QPushButton* done = buttons->addButton(tr("Done"), QDialogButtonBox::AcceptRole);
    done->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    layout->addWidget(first);
    layout->addWidget(second);
    layout->addWidget(buttons);
    setFixedWidth(520);
}

WelcomeSheet* showWelcomeOnFirstStart(QWidget* window, SceneSettings& settings)
{
    if (firstTimeViewDisplayed())
        return nullptr;
    auto* sheet = new WelcomeSheet(window);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
    settings.setFirstTimeViewDisplayed(true);
    return sheet;
}

} // namespace stagewright
