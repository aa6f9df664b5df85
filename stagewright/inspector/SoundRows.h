// What both sound editors show: the header "Sounds" with Show/Hide and
// "Add", and one row per sound with its pickers, volume, wait toggle and a
// play button. The rows report what the user did; the editors decide where
// it goes.
#pragma once

#include "SoundList.h"

#include <QFrame>
#include <QWidget>

#include <vector>

class QCheckBox;
class QComboBox;
class QPushButton;
class QToolButton;
class QVBoxLayout;

namespace stagewright {

class LabelledCGFloatStepper;
class SectionHeader;
class SoundPreview;

/// The controls of one sound.
class SoundRowView : public QFrame {
    Q_OBJECT
public:
    /// `deleteButton`: the row has a "Delete sound" button besides its menu.
    explicit SoundRowView(bool deleteButton, QWidget* parent = nullptr);

    /// Shows `sound`, offering `filenames` in the "Filename" picker; reports nothing.
    void setSound(const tessaro::GameSound& sound, const QStringList& filenames);

signals:
    void edited(stagewright::SoundField field, const stagewright::SoundFieldValue& value);
    void deleteRequested();
    void playRequested();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    QComboBox* m_filename = nullptr;
    QComboBox* m_extension = nullptr;
    QComboBox* m_type = nullptr;
    LabelledCGFloatStepper* m_volume = nullptr;
    QCheckBox* m_wait = nullptr;
};

/// The header and the rows of a sound list.
class SoundListView : public QWidget {
    Q_OBJECT
public:
    SoundListView(bool deleteButtons, QWidget* parent = nullptr);
    ~SoundListView() override;

    /// Shows `sounds`; rows stay in place while their number stays, so a held
    /// volume stepper keeps going. `audioList` holds the workspace's sounds.
    void setSounds(const std::vector<tessaro::GameSound>& sounds, const std::vector<FileItem>& audioList);
    /// Without a receiver the list is shown but cannot be edited.
    void setEditable(bool editable);
    bool showsSounds() const;
    std::size_t rowCount() const { return m_rows.size(); }
    SoundRowView* row(std::size_t index) const { return m_rows.at(index); }
    SoundPreview& preview() { return *m_preview; }

signals:
    void addRequested();
    void deleteRequested(std::size_t index);
    void edited(std::size_t index, stagewright::SoundField field, const stagewright::SoundFieldValue& value);

private:
    void rebuild(std::size_t count);

    bool m_deleteButtons;
    SectionHeader* m_header = nullptr;
    QToolButton* m_add = nullptr;
    QWidget* m_body = nullptr;
    QVBoxLayout* m_rowsLayout = nullptr;
    std::vector<SoundRowView*> m_rows;
    std::vector<tessaro::GameSound> m_sounds;
    SoundPreview* m_preview = nullptr;
};

} // namespace stagewright
