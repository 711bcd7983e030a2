// A print server of a test's own, without a printer. Started in a folder of its own and ended with the
// object; the machine's own queues are not touched.
#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace suisui::test {

class CupsServer
{
public:
    enum class Devices {
        Own,    ///< those of addDevice() alone, and no filter
        System, ///< the machine's, with its filters
    };

    explicit CupsServer(Devices devices);
    ~CupsServer();
    CupsServer(const CupsServer&) = delete;
    CupsServer& operator=(const CupsServer&) = delete;

    /// Why there is no server; empty when there is one.
    [[nodiscard]] QString missing() const { return m_missing; }
    [[nodiscard]] QString filePath(const QString& name) const { return m_folder.filePath(name); }
    /// A device that prints: a shell script for queues of the kind "\a name:…".
    [[nodiscard]] bool addDevice(const QString& name, const QByteArray& script) const;
    [[nodiscard]] bool write(const QString& to, const QByteArray& text, bool program = false) const;
    [[nodiscard]] bool lpadmin(const QStringList& arguments) const;

private:
    void start(Devices devices);
    [[nodiscard]] bool makeFolders(Devices devices) const;

    QTemporaryDir m_folder;
    QProcess m_server;
    QString m_missing;
};

} // namespace suisui::test
