// The "Permissions" tab of the settings: the folders the user has granted,
// each with a button that withdraws its grant, and a button that grants one
// more.
#pragma once

#include <QWidget>

class QToolButton;
class QVBoxLayout;

namespace stagewright {

class AppPreferences;

class SecurityPermissionsView : public QWidget {
    Q_OBJECT
public:
    explicit SecurityPermissionsView(AppPreferences& preferences, QWidget* parent = nullptr);

    QToolButton* addButton() const { return m_add; }
    /// The withdraw button of the row of `folder`, or null.
    QToolButton* removeButton(const QString& folder) const;

private:
    /// One row per granted folder.
    void rebuild();

    AppPreferences& m_preferences;
    QToolButton* m_add = nullptr;
    QVBoxLayout* m_rows = nullptr;
};

} // namespace stagewright
