#include "SoundRows.h"

#include "SoundPreview.h"
#include "controls/SectionHeader.h"
#include "controls/Steppers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace stagewright {

namespace {

constexpr int labelWidth = 150;

QLabel* rowLabel(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    label->setFixedWidth(labelWidth);
    return label;
}

QIcon themeIcon(const char* name)
{
    return QIcon::fromTheme(QLatin1String(name));
}

/// Shows `current` in `picker`, offering `choices`, without reporting.
void showChoice(QComboBox* picker, const QStringList& choices, const QString& current)
{
    const QSignalBlocker quiet(picker);
    QStringList offered = choices;
    // A stored text that is no case is still shown as it stands.
    if (!offered.contains(current))
        offered.prepend(current);
    QStringList present;
    for (int i = 0; i < picker->count(); ++i)
        present.append(picker->itemText(i));
    if (present != offered) {
        picker->clear();
        picker->addItems(offered);
    }
    picker->setCurrentIndex(int(offered.indexOf(current)));
}

} // namespace

SoundRowView::SoundRowView(bool deleteButton, QWidget* parent) : QFrame(parent)
{
    setObjectName(QStringLiteral("soundRow"));
    setFrameShape(QFrame::StyledPanel);
    auto* form = new QFormLayout(this);
    form->setContentsMargins(6, 6, 6, 6);
    form->setVerticalSpacing(4);

    m_filename = new QComboBox(this);
    m_filename->setObjectName(QStringLiteral("filename"));
    m_extension = new QComboBox(this);
    m_extension->setObjectName(QStringLiteral("fileExtension"));
    m_type = new QComboBox(this);
    m_type->setObjectName(QStringLiteral("type"));
    m_volume = new LabelledCGFloatStepper(QString(), QString(), {0, 1}, 0.1, 1, Style{}, this);
    m_volume->setObjectName(QStringLiteral("volume"));
    m_wait = new QCheckBox(this);
    m_wait->setObjectName(QStringLiteral("waitForCompletion"));

    auto* filenameLine = new QHBoxLayout;
    filenameLine->addWidget(m_filename, 1);
    auto* play = new QToolButton(this);
    play->setObjectName(QStringLiteral("playSound"));
    play->setIcon(
        QIcon::fromTheme(QStringLiteral("media-playback-start"), style()->standardIcon(QStyle::SP_MediaPlay)));
    play->setToolTip(tr("Play"));
    filenameLine->addWidget(play);

    form->addRow(rowLabel(tr("Filename"), this), filenameLine);
    form->addRow(rowLabel(tr("Audio Extension"), this), m_extension);
    form->addRow(rowLabel(tr("Audio Type"), this), m_type);
    form->addRow(rowLabel(tr("Volume"), this), m_volume);
    form->addRow(rowLabel(tr("Wait for Completion"), this), m_wait);
    if (deleteButton) {
        auto* remove = new QPushButton(tr("Delete sound"), this);
        remove->setObjectName(QStringLiteral("deleteSound"));
        remove->setFixedSize(120, 20);
        form->addRow(QString(), remove);
        connect(remove, &QPushButton::clicked, this, &SoundRowView::deleteRequested);
    }

    auto text = [](const QString& value) { return SoundFieldValue(value.toStdString()); };
    connect(m_filename, &QComboBox::textActivated, this,
            [this, text](const QString& value) { emit edited(SoundField::filename, text(value)); });
    connect(m_extension, &QComboBox::textActivated, this,
            [this, text](const QString& value) { emit edited(SoundField::fileExtension, text(value)); });
    connect(m_type, &QComboBox::textActivated, this,
            [this, text](const QString& value) { emit edited(SoundField::type, text(value)); });
    connect(m_volume, &LabelledCGFloatStepper::valueChanged, this,
            [this](double value) { emit edited(SoundField::volume, value); });
    connect(m_wait, &QCheckBox::clicked, this,
            [this](bool checked) { emit edited(SoundField::waitForCompletion, checked); });
    connect(play, &QToolButton::clicked, this, &SoundRowView::playRequested);
}

void SoundRowView::setSound(const tessaro::GameSound& sound, const QStringList& filenames)
{
    showChoice(m_filename, filenames, QString::fromStdString(sound.filename));
    showChoice(m_extension, soundExtensionChoices(), QString::fromStdString(sound.fileExtension));
    showChoice(m_type, soundTypeChoices(), QString::fromStdString(sound.type));
    m_volume->setValue(shownVolume(sound));
    const QSignalBlocker quiet(m_wait);
    m_wait->setChecked(shownWaitForCompletion(sound));
}

void SoundRowView::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu menu(this);
    QAction* remove = menu.addAction(themeIcon("list-remove"), tr("Delete"));
    remove->setEnabled(isEnabled());
    if (menu.exec(event->globalPos()) == remove)
        emit deleteRequested();
}

SoundListView::SoundListView(bool deleteButtons, QWidget* parent)
    : QWidget(parent),
      m_deleteButtons(deleteButtons),
      m_preview(new SoundPreview(this))
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto* headerLine = new QHBoxLayout;
    m_header = new SectionHeader(tr("Sounds"), true, tr("Hide"), tr("Show"), false, this);
    headerLine->addWidget(m_header, 1);
    headerLine->addSpacing(8);
    m_add = new QToolButton(this);
    m_add->setObjectName(QStringLiteral("addSound"));
    m_add->setText(tr("Add"));
    m_add->setIcon(themeIcon("list-add"));
    m_add->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_add->setAutoRaise(true);
    headerLine->addWidget(m_add);
    column->addLayout(headerLine);

    m_body = new QWidget(this);
    m_rowsLayout = new QVBoxLayout(m_body);
    m_rowsLayout->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_body);
    column->addStretch(1);

    connect(m_header, &SectionHeader::toggled, m_body, &QWidget::setVisible);
    connect(m_add, &QToolButton::clicked, this, &SoundListView::addRequested);
}

SoundListView::~SoundListView() = default;

bool SoundListView::showsSounds() const
{
    return m_header->isOn();
}

void SoundListView::setEditable(bool editable)
{
    m_add->setEnabled(editable);
    m_body->setEnabled(editable);
}

void SoundListView::setSounds(const std::vector<tessaro::GameSound>& sounds, const std::vector<FileItem>& audioList)
{
    m_sounds = sounds;
    if (m_rows.size() != sounds.size())
        rebuild(sounds.size());
    for (std::size_t index = 0; index < sounds.size(); ++index)
        m_rows[index]->setSound(sounds[index],
                                soundFilenameChoices(audioList, QString::fromStdString(sounds[index].filename)));
}

void SoundListView::rebuild(std::size_t count)
{
    // A row may be the one whose signal asked for this: it goes later.
    for (SoundRowView* row : m_rows) {
        m_rowsLayout->removeWidget(row);
        row->hide();
        row->deleteLater();
    }
    m_rows.clear();
    for (std::size_t index = 0; index < count; ++index) {
        auto* row = new SoundRowView(m_deleteButtons, m_body);
        m_rowsLayout->addWidget(row);
        m_rows.push_back(row);
        connect(row, &SoundRowView::edited, this,
                [this, index](SoundField field, const SoundFieldValue& value) { emit edited(index, field, value); });
        connect(row, &SoundRowView::deleteRequested, this, [this, index] { emit deleteRequested(index); });
        connect(row, &SoundRowView::playRequested, this, [this, index] {
            if (index < m_sounds.size())
                m_preview->play(m_sounds[index]);
        });
    }
}

} // namespace stagewright
