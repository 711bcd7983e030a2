// The words of the screens, the remembered folders and the label settings. Kept in AppIni.ini in the folder
// Ini; a shop's wording there replaces the shipped one, text by text.
#pragma once

#include <utility>
#include <vector>

#include <QString>
#include <QStringList>

#include "store/IniFile.h"

namespace suisui {

/// What labels are printed of. Each has its own settings, under its number.
enum class LabelMode { Goods = 0, Components = 1, Partners = 2, Receipts = 3, Shipments = 4 };

class AppIni
{
public:
    AppIni();

    /// Names the folder that holds AppIni.ini and reads it.
    void setIniFolder(const QString& folder);

    [[nodiscard]] QString MasterTerm(int index) const { return word(u"MasterTerm", index); }
    [[nodiscard]] QString TabTitle(int tab) const { return word(u"TabTitle", tab); }
    [[nodiscard]] QString Term(int index) const { return word(u"Term", index); }
    // Headings of the grids by column, from 1. Empty outside the columns.
    [[nodiscard]] QString InpHeading(int column) const { return word(u"InpHeading", column); }
    [[nodiscard]] QString OutHeading(int column) const { return word(u"OutHeading", column); }
    [[nodiscard]] QString StockHeading(int column) const { return word(u"StockHeading", column); }
    [[nodiscard]] QString ReceiptListHeading(int column) const { return word(u"ReceiptListHeading", column); }
    [[nodiscard]] QString ShipmentListHeading(int column) const
    {
        return word(u"ShipmentListHeading", column);
    }

    [[nodiscard]] QString LastHistoryFolder() const;
    bool setLastHistoryFolder(const QString& folder);
    /// The file of a period whose save has begun and may not have ended; usually empty.
    [[nodiscard]] QString SaveInTheMaking() const;
    bool setSaveInTheMaking(const QString& path);
    /// Stores folder and last day of a finished save together with \a inTheMaking.
    bool setLastSave(const QString& folder, const QString& lastDay, const QString& inTheMaking);
    [[nodiscard]] QString LastBackupFolder() const;

    /// A setting of the label dialog for \a mode; empty when nothing is stored.
    [[nodiscard]] QString labelSetting(LabelMode mode, const QString& name) const;
    bool setLabelSetting(LabelMode mode, const QString& name, const QString& value);
    /// Stores several of them at once, by name; new ones are added in this order.
    bool setLabelSettings(LabelMode mode, const std::vector<std::pair<QString, QString>>& settings);

private:
    [[nodiscard]] QString word(QStringView section, int index) const;

    IniFile m_shipped;
    IniFile m_file;
};

} // namespace suisui
