// Where the program runs: the program folder, the user's folders, the date of last use and the reader's
// settings. The last two are kept in Ini/AppEnv.ini under the program folder, which the master-data program
// shares.
#pragma once

#include <QString>

#include "store/IniFile.h"

namespace suisui {

struct ReaderSettings
{
    QString commKind;
    QString commPortNo;
    QString commBaud;
    QString commParity;
    QString commDataBit;
    QString commStopBit;
};

class AppEnv
{
public:
    /// \a baseFolder: see programFolder.
    explicit AppEnv(const QString& baseFolder);

    /// The program folder, no trailing separator.
    [[nodiscard]] QString BaseFolder() const { return m_baseFolder; }
    [[nodiscard]] QString MyDocFolder() const;
    [[nodiscard]] QString DeskTopFolder() const;

    /// "YYYYMMDD", or empty when the program was never used.
    [[nodiscard]] QString LastUseDate() const;
    /// False when the settings could not be written.
    bool setLastUseDate(const QString& date);

    [[nodiscard]] ReaderSettings readerSettings() const;
    /// Whether scans of a reader that types are recognised wherever the focus is: section Reader, key
    /// TypedScan; yes unless it is "0".
    [[nodiscard]] bool typedScans() const;
    /// Device of port \a number: from section Ports, else "/dev/ttyS{number-1}".
    [[nodiscard]] QString portDevice(int number) const;

    /// The folder that holds \a executable when that folder also holds DB or Ini; otherwise the user's own
    /// application-data folder.
    [[nodiscard]] static QString programFolder(const QString& executable);

private:
    /// Read at each use: the master-data program shares the file.
    [[nodiscard]] IniFile file() const;

    QString m_baseFolder;
};

} // namespace suisui
