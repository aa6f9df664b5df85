#include "SecurityPermissionsView.h"

#include "ShellIcons.h"

#include <stagewright/state/AppPreferences.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QToolButton>
#include <QVBoxLayout>

namespace stagewright {

namespace {

const char* folderProperty = "grantedFolder";

QToolButton* symbolButton(Symbol symbol, const QString& tip, QWidget* parent)
{
    auto* button = new QToolButton(parent);
    button->setIcon(shellIcon(symbol));
    button->setToolTip(tip);
    button->setAutoRaise(true);
    return button;
}

} // namespace

SecurityPermissionsView::SecurityPermissionsView(AppPreferences& preferences, QWidget* parent)
    : QWidget(parent),
      m_preferences(preferences)
{
    auto* column = new QVBoxLayout(this);
    auto* head = new QHBoxLayout;
    auto* heading = new QLabel(tr("Allowed locations"), this);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    head->addWidget(heading);
    head->addStretch(1);
    m_add = symbolButton(Symbol::plus, tr("Allow a folder"), this);
    m_add->setObjectName(QStringLiteral("addLocation"));
    head->addWidget(m_add);
    column->addLayout(head);

    auto* scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    auto* list = new QWidget(scroll);
    m_rows = new QVBoxLayout(list);
    m_rows->setContentsMargins(0, 0, 0, 0);
    m_rows->addStretch(1);
    scroll->setWidget(list);
    column->addWidget(scroll, 1);

    // A cancelled folder panel grants nothing and says nothing.
    connect(m_add, &QToolButton::clicked, &preferences, [&preferences] { preferences.grantFolder(); });
    connect(&preferences, &AppPreferences::grantedFoldersChanged, this, &SecurityPermissionsView::rebuild);
    rebuild();
}

QToolButton* SecurityPermissionsView::removeButton(const QString& folder) const
{
    for (QToolButton* button : findChildren<QToolButton*>())
        if (button->property(folderProperty).toString() == folder)
            return button;
    return nullptr;
}

void SecurityPermissionsView::rebuild()
{
    while (m_rows->count() > 1) {
        QLayoutItem* item = m_rows->takeAt(0);
        delete item->widget();
        delete item;
    }
    const QStringList folders = m_preferences.grantedFolders();
    for (const QString& folder : folders) {
        auto* row = new QWidget;
        auto* line = new QHBoxLayout(row);
        line->setContentsMargins(4, 0, 4, 0);
        auto* path = new QLabel(folder, row);
        path->setTextInteractionFlags(Qt::TextSelectableByMouse);
        line->addWidget(path, 1);
        QToolButton* remove = symbolButton(Symbol::minus, tr("Withdraw the permission"), row);
        remove->setProperty(folderProperty, folder);
        line->addWidget(remove);
        // The row goes away with the grant, so the removal waits until the
        // click has been handled.
        connect(
            remove, &QToolButton::clicked, this, [this, folder] { m_preferences.removeGrant(folder); },
            Qt::QueuedConnection);
        m_rows->insertWidget(m_rows->count() - 1, row);
    }
}

} // namespace stagewright
