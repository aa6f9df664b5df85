#include "LocalHttpServer.h"

namespace stagewright::test {

LocalHttpServer::LocalHttpServer()
{
    m_server.listen(QHostAddress::LocalHost, 0);
    connect(&m_server, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket* socket = m_server.nextPendingConnection()) {
            m_open.append(socket);
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { answer(socket); });
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            connect(socket, &QObject::destroyed, this, [this, socket] { m_buffers.remove(socket); });
        }
    });
}

LocalHttpServer::~LocalHttpServer()
{
    // The sockets go now, while the buffers their destruction updates still
    // exist; left to the server member, they would go after the buffers.
    for (const QPointer<QTcpSocket>& socket : std::as_const(m_open)) {
        if (socket) {
            socket->abort();
            delete socket.data();
        }
    }
}

QString LocalHttpServer::address() const
{
    return QStringLiteral("http://127.0.0.1:%1").arg(m_server.serverPort());
}

QUrl LocalHttpServer::url(const QString& path) const
{
    return QUrl(address() + path);
}

void LocalHttpServer::route(const QString& path, HttpRoute route)
{
    m_routes.insert(path, std::move(route));
}

quint16 LocalHttpServer::closedPort()
{
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost, 0);
    const quint16 port = probe.serverPort();
    probe.close();
    return port;
}

void LocalHttpServer::answer(QTcpSocket* socket)
{
    QByteArray& request = m_buffers[socket];
    request += socket->readAll();
    if (!request.contains("\r\n\r\n"))
        return;
    const QList<QByteArray> requestLine = request.left(request.indexOf("\r\n")).split(' ');
    const QString path = requestLine.size() > 1 ? QString::fromLatin1(requestLine[1]) : QString();
    request.clear();
    m_requests << path;

    const HttpRoute route = m_routes.value(path, HttpRoute{404, QByteArray("not here"), -1});
    const QByteArray reason = route.status == 200 ? "OK" : route.status == 404 ? "Not Found" : "Error";
    QByteArray head = "HTTP/1.1 " + QByteArray::number(route.status) + ' ' + reason + "\r\n";
    head += "Content-Type: application/zip\r\n";
    head += "Content-Length: " + QByteArray::number(route.body.size()) + "\r\n";
    head += "Connection: close\r\n\r\n";
    socket->write(head);
    if (route.sendBeforeStall < 0) {
        socket->write(route.body);
        socket->disconnectFromHost();
    } else {
        socket->write(route.body.left(route.sendBeforeStall));
        socket->flush();
    }
}

} // namespace stagewright::test
