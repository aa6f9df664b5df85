// A small HTTP server on 127.0.0.1 at a port the system picks, for the
// download tests. Each path answers as its route says: a status, a body, and
// how much of the body goes out before the server stops sending (and keeps
// the connection open) to stand for a stalled or slow server.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QPointer>
#include <QString>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

namespace stagewright::test {

struct HttpRoute {
    int status = 200;
    QByteArray body;
    /// Bytes of the body sent before the server goes quiet; -1 sends all.
    qsizetype sendBeforeStall = -1;
};

class LocalHttpServer : public QObject {
    Q_OBJECT
public:
    LocalHttpServer();
    ~LocalHttpServer() override;

    bool isListening() const { return m_server.isListening(); }
    /// "http://127.0.0.1:PORT".
    QString address() const;
    QUrl url(const QString& path) const;
    void route(const QString& path, HttpRoute route);
    /// The paths asked for, in order.
    const QStringList& requests() const { return m_requests; }

    /// A port on 127.0.0.1 where nothing listens.
    static quint16 closedPort();

private:
    void answer(QTcpSocket* socket);

    QTcpServer m_server;
    QHash<QString, HttpRoute> m_routes;
    QStringList m_requests;
    QList<QPointer<QTcpSocket>> m_open;
    QHash<QTcpSocket*, QByteArray> m_buffers; // what each connection has sent so far
};

} // namespace stagewright::test
