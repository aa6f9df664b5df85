#include "AppGeneralView.h"

#include <stagewright/inspector/controls/Steppers.h>
#include <stagewright/state/AppPreferences.h>

#include <QCheckBox>
#include <QFormLayout>
#include <QLineEdit>

namespace stagewright {

namespace {

QLineEdit* addressField(const QString& objectName, const QString& fallback, QWidget* parent)
{
    auto* field = new QLineEdit(parent);
    field->setObjectName(objectName);
    field->setPlaceholderText(fallback);
    field->setClearButtonEnabled(true);
    field->setMinimumWidth(360);
    return field;
}

} // namespace

AppGeneralView::AppGeneralView(AppPreferences& preferences, QWidget* parent)
    : QWidget(parent),
      m_preferences(preferences)
{
    auto* form = new QFormLayout(this);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_darkMode = new QCheckBox(this);
    m_darkMode->setObjectName(QStringLiteral("darkModeSwitch"));
    m_darkMode->setChecked(preferences.darkMode());
    // Only the box itself takes the click, so it keeps its own size.
    m_darkMode->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    form->addRow(tr("Dark mode:"), m_darkMode);

    m_server = addressField(QStringLiteral("serverAddressField"), AppPreferences::defaultServerAddress(), this);
    m_server->setToolTip(tr("The web server that \"Download\" fetches the archives from."));
    form->addRow(tr("Download server:"), m_server);
    m_sourcePage = addressField(QStringLiteral("sourcePageField"), AppPreferences::defaultSourcePageAddress(), this);
    m_sourcePage->setToolTip(tr("The page that \"Github Pages\" opens."));
    form->addRow(tr("Source page:"), m_sourcePage);
    showAddresses();

    m_autosave = new LabelledIntStepper(QString(), QString(), 0, 3600, 30, {}, this);
    m_autosave->setObjectName(QStringLiteral("autosaveInterval"));
    m_autosave->setToolTip(tr("Seconds between copies of unsaved projects, kept for recovery after a crash; 0 "
                              "copies only after every 50 edits."));
    m_autosave->setValue(AppPreferences::autosaveInterval());
    form->addRow(tr("Recovery copy every (s):"), m_autosave);
    connect(m_autosave, &LabelledIntStepper::valueChanged, &preferences,
            [&preferences](std::int64_t seconds) { preferences.setAutosaveInterval(int(seconds)); });
    connect(&preferences, &AppPreferences::autosaveIntervalChanged, m_autosave,
            [this] { m_autosave->setValue(AppPreferences::autosaveInterval()); });

    connect(m_darkMode, &QCheckBox::toggled, &preferences, &AppPreferences::setDarkMode);
    connect(&preferences, &AppPreferences::darkModeChanged, m_darkMode,
            [this] { m_darkMode->setChecked(m_preferences.darkMode()); });
    // An address is taken when the user leaves the field or presses Return,
    // not at every keystroke.
    connect(m_server, &QLineEdit::editingFinished, this, [this] { m_preferences.setServerAddress(m_server->text()); });
    connect(m_sourcePage, &QLineEdit::editingFinished, this,
            [this] { m_preferences.setSourcePageAddress(m_sourcePage->text()); });
    connect(&preferences, &AppPreferences::addressesChanged, this, &AppGeneralView::showAddresses);
}

void AppGeneralView::showAddresses()
{
    const auto show = [](QLineEdit* field, const QString& address, const QString& fallback) {
        const QString shown = address == fallback ? QString() : address;
        if (field->text() != shown)
            field->setText(shown);
    };
    show(m_server, AppPreferences::serverAddress(), AppPreferences::defaultServerAddress());
    show(m_sourcePage, AppPreferences::sourcePageAddress(), AppPreferences::defaultSourcePageAddress());
}

} // namespace stagewright
