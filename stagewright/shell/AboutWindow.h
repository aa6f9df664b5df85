// "About StageWright": the application image, name, version and copyright,
// the links to the maker's web site, and the libraries the program uses with
// their licences.
#pragma once

#include <QList>
#include <QString>
#include <QWidget>

#include <vector>

class QLabel;

namespace stagewright {

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
    explicit AboutWindow(QWidget* parent = nullptr);
    /// "Version " + the short version + " (" + the build version + ")";
    /// a version that is not known reads "N/A".
    static QString versionLine();
    static QString copyrightLine();
    /// The maker's web site and its documentation pages.
    static QString developerSite();
    static QString documentationSite();

protected:
    void changeEvent(QEvent* event) override;

private:
    void showLink(QLabel* label) const;

    QList<QLabel*> m_links;
};

} // namespace stagewright
