// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/StreamSocket.h"

#include <QFile>
#include <QTest>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace Host;

namespace {

/// A UDP socket on the loopback that receives whatever is sent to it.
class CReceiver
{
public:
    CReceiver()
        : m_descriptor(socket(AF_INET, SOCK_DGRAM, 0))
    {
        m_address.sin_family = AF_INET;
        m_address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof m_address;
        auto* const address = reinterpret_cast<sockaddr*>(&m_address);
        if (bind(m_descriptor, address, size) != 0 || getsockname(m_descriptor, address, &size) != 0)
            qFatal("no socket");
    }
    ~CReceiver() { close(m_descriptor); }
    Q_DISABLE_COPY(CReceiver)

    quint16 port() const { return ntohs(m_address.sin_port); }

    void setBuffer(int bytes) const { setsockopt(m_descriptor, SOL_SOCKET, SO_RCVBUF, &bytes, sizeof bytes); }

    void sendToItself(int packets) const
    {
        const QByteArray packet(1000, 'x');
        for (int i = 0; i < packets; ++i)
            sendto(m_descriptor, packet.constData(), std::size_t(packet.size()), 0,
                   reinterpret_cast<const sockaddr*>(&m_address), sizeof m_address);
    }

private:
    const int m_descriptor;
    sockaddr_in m_address{};
};

} // namespace

class tst_StreamSocket : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsItsBuffer();
    void countsWhatFindsNoRoom();
    void portThatNobodyHas();
};

void tst_StreamSocket::tellsItsBuffer()
{
    CReceiver receiver;
    receiver.setBuffer(65536);
    const SStreamSocket socket = streamSocket(receiver.port());
    QVERIFY(!socket.isPacketSocket);
    QCOMPARE(socket.bufferBytes.value_or(0), quint64(65536));
    QCOMPARE(socket.drops.value_or(1), quint64(0));
    QCOMPARE(socket.mostBufferBytes.has_value(), QFile::exists(QStringLiteral("/proc/sys/net/core/rmem_max")));
}

void tst_StreamSocket::countsWhatFindsNoRoom()
{
    CReceiver receiver;
    receiver.setBuffer(4096);
    receiver.sendToItself(100);
    const quint64 drops = streamSocket(receiver.port()).drops.value_or(0);
    QVERIFY2(drops > 50 && drops < 100, qPrintable(QString::number(drops)));
}

void tst_StreamSocket::portThatNobodyHas()
{
    const SStreamSocket socket = streamSocket(1);
    QVERIFY(!socket.bufferBytes);
    QVERIFY(!socket.drops);
}

QTEST_GUILESS_MAIN(tst_StreamSocket)
#include "tst_StreamSocket.moc"
