// "About StageWright": the application image, name, version and copyright,
// the links to the maker's web site (which follow the address set in the
// settings), the licence, and the libraries the program uses with theirs.
#pragma once

#include <QList>
#include <QString>
#include <QWidget>

#include <vector>

class QLabel;

namespace stagewright {

class AppPreferences;

/// A library the program is built with.
struct UsedLibrary {
    QString name;
    QString licence;
    QString use; // what the program uses it for
};
/// The libraries, in the order the window lists them.
const std::vector<UsedLibrary>& usedLibraries();

class AboutWindow : public QWidget {
    Q_OBJECT
public:
    /// With `preferences`, the links follow changes of the server address.
    explicit AboutWindow(AppPreferences* preferences = nullptr, QWidget* parent = nullptr);
    /// "Version " + the short version + " (" + the build version + ")";
    /// a version that is not known reads "N/A".
    static QString versionLine();
    static QString copyrightLine();
    /// The licence of StageWright and Tessaro.
    static QString licenceLine();
    /// The maker's web site and its documentation pages.
    static QString developerSite();
    static QString documentationSite();

protected:
    void changeEvent(QEvent* event) override;

private:
    void showLink(QLabel* label) const;
    /// Points the two links at the server address in force.
    void addressLinks();

    QList<QLabel*> m_links;
    QLabel* m_developerLink = nullptr;
    QLabel* m_documentationLink = nullptr;
};

} // namespace stagewright
