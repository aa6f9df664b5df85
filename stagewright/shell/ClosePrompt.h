// The question before the window closes with unsaved work: "Save All",
// "Discard" or "Cancel".
#pragma once

#include <QMessageBox>
#include <QStringList>

namespace stagewright {

enum class CloseAnswer { SaveAll, Discard, Cancel };

class ClosePrompt : public QMessageBox {
    Q_OBJECT
public:
    /// Names the projects with unsaved changes.
    explicit ClosePrompt(const QStringList& projectNames, QWidget* parent = nullptr);

    QAbstractButton* button(CloseAnswer answer) const;
    /// What the user chose; "Cancel" until a button is pressed.
    CloseAnswer answer() const;

    /// Shows the question modally and gives the answer.
    static CloseAnswer ask(const QStringList& projectNames, QWidget* parent);

private:
    QPushButton* m_saveAll = nullptr;
    QPushButton* m_discard = nullptr;
    QPushButton* m_cancel = nullptr;
};

} // namespace stagewright
