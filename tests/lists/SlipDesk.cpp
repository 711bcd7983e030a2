#include "tests/lists/SlipDesk.h"

#include <iconv.h>

#include <QDir>

#include "store/IniFile.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

std::string readAsUtf8(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray bytes = file.readAll();
    iconv_t conversion = iconv_open("UTF-8", "CP932");
    std::string text(static_cast<std::size_t>(bytes.size()) * 3 + 16, '\0');
    char* from = bytes.data();
    auto fromLeft = static_cast<std::size_t>(bytes.size());
    char* to = text.data();
    std::size_t toLeft = text.size();
    EXPECT_EQ(iconv(conversion, &from, &fromLeft, &to, &toLeft), 0U);
    iconv_close(conversion);
    text.resize(text.size() - toLeft);
    return text;
}

} // namespace

std::vector<Lines> readBack(const QString& path)
{
    const std::string text = readAsUtf8(path);
    std::vector<Lines> records;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = text.find("\r\n", at);
        if (end == std::string::npos) {
            ADD_FAILURE() << "every line ends in CR LF";
            break;
        }
        const std::string line = text.substr(at, end - at);
        EXPECT_TRUE(line.ends_with(',')) << line;
        Lines fields;
        for (std::size_t begin = 0; begin < line.size();) {
            const std::size_t comma = line.find(',', begin);
            fields.push_back(line.substr(begin, comma - begin));
            begin = comma + 1;
        }
        records.push_back(fields);
        at = end + 2;
    }
    return records;
}

Slip::Slip()
{
    QDir(desk.shop.base()).mkpath(u"exe"_s);
    slipIni.setIniFolder(desk.shop.base() + u"/Ini"_s);
    desk.page->setSlipPlace(slipIni, desk.shop.base() + u"/exe"_s);
    desk.frame.staffName = u"当番　花子"_s;
    desk.shop.add(kokyakuTable, {"102", "西商店", "", "100-0001", "東京都", "千代田区", "１－１", "03-1111"});
}

void Slip::installProgram() const
{
    QFile file(program());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\necho >> ../starts\nwc -l < FileCsv.csv > started.tmp && mv started.tmp started\n");
    file.setPermissions(file.permissions() | QFileDevice::ExeOwner);
}

qint64 Slip::starts() const
{
    return QFileInfo(desk.shop.base() + u"/starts"_s).size();
}

QString Slip::handedOver(const QString& key) const
{
    IniFile file;
    EXPECT_TRUE(file.load(desk.shop.base() + u"/Ini/SlipIni.ini"_s));
    return file.value(u"Slip", key).value_or(u"-"_s);
}

} // namespace suisui::test
