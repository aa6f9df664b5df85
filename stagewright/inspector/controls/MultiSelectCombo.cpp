#include "MultiSelectCombo.h"

#include "ControlSymbols.h"
#include "ElidedLabel.h"
#include "Popover.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace stagewright {

QStringList toggledSelection(QStringList values, const QString& value)
{
    if (values.contains(value))
        values.removeAll(value);
    else
        values.append(value);
    return values;
}

namespace {

constexpr int textColumnWidth = 250;
constexpr int listWidth = 350;
const char* checkProperty = "checkMark";

QLabel* passiveLabel(QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    return label;
}

} // namespace

CustomMultiSelectCombo::CustomMultiSelectCombo(const QString& label, const QStringList& items, QWidget* parent)
    : QWidget(parent),
      m_items(items)
{
    auto* outer = new QHBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    m_row = new QPushButton(this);
    m_row->setObjectName(QStringLiteral("multiSelectButton"));
    m_row->setFlat(true);
    m_row->setMinimumHeight(24);
    outer->addWidget(m_row);

    auto* row = new QHBoxLayout(m_row);
    row->setContentsMargins(4, 0, 4, 0);
    QLabel* title = passiveLabel(m_row);
    title->setText(label);
    row->addWidget(title);
    // The names take up to the column's width and elide in a narrower pane.
    m_text = new ElidedLabel(QString(), m_row);
    m_text->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_text->setObjectName(QStringLiteral("multiSelectText"));
    m_text->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_text->setMaximumWidth(textColumnWidth);
    row->addWidget(m_text);
    m_count = passiveLabel(m_row);
    m_count->setObjectName(QStringLiteral("multiSelectCount"));
    row->addWidget(m_count);
    QLabel* chevrons = passiveLabel(m_row);
    chevrons->setPixmap(detail::upDownChevrons(palette().color(QPalette::WindowText)));
    row->addWidget(chevrons);
    row->addStretch(1);

    connect(m_row, &QPushButton::clicked, this, &CustomMultiSelectCombo::showPopover);
    refresh();
}

QStringList CustomMultiSelectCombo::values() const
{
    return m_values;
}

void CustomMultiSelectCombo::setValues(const QStringList& values)
{
    m_values = values;
    refresh();
}

void CustomMultiSelectCombo::setSeparator(const QString& separator)
{
    m_separator = separator;
    refresh();
}

bool CustomMultiSelectCombo::isPopover() const
{
    return m_popover && m_popover->isVisible();
}

void CustomMultiSelectCombo::showPopover()
{
    if (!m_popover) {
        m_popover = detail::makePopover(this);
        m_popover->setObjectName(QStringLiteral("multiSelectPopover"));
        auto* column = new QVBoxLayout(m_popover);
        column->setContentsMargins(2, 2, 2, 2);
        m_list = new QListWidget(m_popover);
        m_list->setObjectName(QStringLiteral("multiSelectList"));
        m_list->setFixedWidth(listWidth);
        m_list->setMouseTracking(true);
        m_list->setSelectionMode(QAbstractItemView::NoSelection);
        m_list->setFocusPolicy(Qt::NoFocus);
        m_list->setStyleSheet(QStringLiteral("QListWidget::item:hover { background: palette(midlight); }"));
        column->addWidget(m_list);
        for (const QString& item : m_items) {
            auto* entry = new QListWidgetItem(m_list);
            entry->setData(Qt::UserRole, item);
            // The line is drawn by its own widget: the text, and the check mark
            // on the far side.
            auto* line = new QWidget;
            line->setAttribute(Qt::WA_TransparentForMouseEvents);
            auto* lineLayout = new QHBoxLayout(line);
            lineLayout->setContentsMargins(6, 2, 6, 2);
            QLabel* text = passiveLabel(line);
            text->setText(item);
            lineLayout->addWidget(text, 1);
            QLabel* check = passiveLabel(line);
            check->setObjectName(QLatin1String(checkProperty));
            lineLayout->addWidget(check);
            entry->setSizeHint(line->sizeHint());
            m_list->setItemWidget(entry, line);
        }
        m_list->setFixedHeight(std::min(400, m_list->sizeHintForRow(0) * int(m_items.size()) + 6));
        connect(m_list, &QListWidget::itemClicked, this,
                [this](QListWidgetItem* entry) { click(entry->data(Qt::UserRole).toString()); });
        refresh();
    }
    detail::showPopoverBelow(m_popover, m_row);
}

void CustomMultiSelectCombo::click(const QString& item)
{
    m_values = toggledSelection(m_values, item);
    refresh();
    emit itemClicked(item);
    emit valuesChanged(m_values);
}

void CustomMultiSelectCombo::refresh()
{
    const QString joined = m_values.join(m_separator);
    m_text->setFullText(joined);
    const QColor text = palette().color(QPalette::WindowText);
    m_count->setPixmap(detail::circledNumber(int(m_values.size()), text));
    if (!m_list)
        return;
    for (int row = 0; row < m_list->count(); ++row) {
        QListWidgetItem* entry = m_list->item(row);
        if (auto* check = m_list->itemWidget(entry)->findChild<QLabel*>(QLatin1String(checkProperty)))
            check->setPixmap(detail::checkMark(text, m_values.contains(entry->data(Qt::UserRole).toString()) ? 1 : 0));
    }
}

} // namespace stagewright
