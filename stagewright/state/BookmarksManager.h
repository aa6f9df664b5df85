// Lasting folder grants: one small file per granted folder, in the folder
// "grants" of the application's data folder, each holding the folder's path.
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <optional>

namespace stagewright {

class BookmarksManager : public QObject {
    Q_OBJECT
public:
    /// Keeps its grant files in `grantFolder`; an empty text means the folder
    /// "grants" of the application's data folder, looked up at each use.
    explicit BookmarksManager(QString grantFolder = {}, QObject* parent = nullptr);
    ~BookmarksManager() override;

    /// The one instance of the run.
    static BookmarksManager& shared();

    /// The folders granted, as loaded or added during the run.
    const QStringList& secureUrls() const { return m_secureUrls; }
    /// Where the grant files lie, ending in "/".
    QString grantFolder() const;

    /// Makes a grant on `location` lasting; a location granted already gets
    /// no second file.
    virtual void add(const QString& location);
    /// Deletes every grant file naming `location`, then reloads `secureUrls`.
    virtual void remove(const QString& location);
    /// The granted folder whose path is a text prefix of `location`'s path.
    /// A grant whose folder has gone (stale) ends the search with none.
    virtual std::optional<QString> loadSecurityScopedURL(const QString& location);
    /// Fills `secureUrls` from the grant files.
    virtual void loadAllBookmarks();

    /// Whether access to a granted folder can be opened now.
    static bool startAccessing(const QString& location);

signals:
    void secureUrlsChanged();

private:
    struct Resolved {
        QString location;
        bool stale = false;
    };
    /// The grant files in listing order, skipping ".DS_Store"; none and an
    /// error text when the folder cannot be listed.
    std::optional<QStringList> grantFiles(QString* error) const;
    std::optional<Resolved> resolve(const QString& file, QString* error) const;

    QString m_grantFolder;
    QStringList m_secureUrls;
};

} // namespace stagewright
