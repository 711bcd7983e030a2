// The texts of the data tool, in both languages side by side; see Texts.h. Messages about forms are not here:
// they are always in Japanese.
#pragma once

#include "tools/Texts.h"

namespace suisui::phrases {

// ---- reasons of the system and of the database engine

inline constexpr Phrase noRoom{"no space left", "ディスクの空き容量が足りません"};
inline constexpr Phrase noPermission{"permission denied", "書き込みまたは読み取りの許可がありません"};
inline constexpr Phrase readOnlyDisk{"the disk is read-only", "ディスクが書き込み禁止になっています"};
inline constexpr Phrase noSuchFile{"no such file or folder", "ファイルまたはフォルダがありません"};
inline constexpr Phrase notAFolder{"not a folder", "フォルダではありません"};
inline constexpr Phrase isAFolder{"this is a folder", "フォルダです"};
inline constexpr Phrase existsAlready{"something has that name already", "同じ名前のものがすでにあります"};
inline constexpr Phrase deviceNotReady{"the disk does not answer", "ディスクの準備ができていません"};
inline constexpr Phrase noSuchDatabase{"there is no such file, or no permission to open it",
                                       "ファイルがないか、開く許可がありません"};
inline constexpr Phrase damagedDatabase{
    "the database is damaged, or is not one ({1}); \"tagdb restore COPY\" brings a backup back",
    "データベースが壊れているか、データベースではありません（{1}）。「tagdb restore "
    "写し」でバックアップから戻して下さい"};
inline constexpr Phrase busyDatabase{"another program holds it ({1})", "ほかのプログラムが使用中です（{1}）"};
inline constexpr Phrase readOnlyDatabase{"it cannot be written to ({1})", "書き込めません（{1}）"};
inline constexpr Phrase fullDisk{"no space left ({1})", "ディスクの空き容量が足りません（{1}）"};
inline constexpr Phrase engineFailed{"{1}", "データベースの処理に失敗しました（{1}）"};
/// Messages of the store, which are in English.
inline constexpr Phrase causes[] = {
    {"it cannot be written to", "書き込めません"},
    {"this is not a whole database of the program, or is one of a newer version",
     "このプログラムの完全なデータベースではないか、新しい版のデータベースです"},
    {"this is not a whole database of the program", "このプログラムの完全なデータベースではありません"},
    {"the row was changed or deleted meanwhile", "その行は、ほかで変更または削除されました"},
};

// ---- kinds of text that a column may be asked to hold
inline constexpr Phrase kinds[] = {
    {"whole number", "整数"},
    {"number", "数"},
    {"date", "日付"},
    {"time", "時刻"},
    {"movement number", "入出荷の数値"},
    {"stock number", "在庫の数値"},
    {"code", "コード"},
    {"time stamp", "日時"},
};

// ---- messages of reading and importing a Jet file, which are put together in English

inline constexpr Phrase jetReasons[] = {
    {"there is no such table", "この表がありません"},
    {"there is no such file", "ファイルがありません"},
    {"this is not a Jet database", "Jet（Access）のデータベースではありません"},
    {"this is neither a Jet 3 nor a Jet 4 database",
     "Jet 3、Jet 4（Access 97～2003）のデータベースではありません"},
    {"its list of tables cannot be read", "表の一覧を読めません"},
    {"the file is damaged and cannot be read to its end", "ファイルが壊れていて、最後まで読めません"},
    {"the file ends before this row does", "この行の途中でファイルが終わっています"},
    {"it ends inside its last page, {1} bytes are missing",
     "最後のページの途中で終わっています（{1} バイト不足）"},
    {"there is no column {1}", "列「{1}」がありません"},
    {"column {1} is neither text nor number", "列「{1}」は文字でも数でもありません"},
    {"a row with the key {1} is there already", "同じ行（{1}）がすでにあります"},
    {"column {1} has no place here; it holds texts in {2} rows",
     "列「{1}」は取り込めません（{2} 行に文字が入っています）"},
    {"the file has {1} rows, {2} can be read", "ファイルには {1} 行ありますが、{2} 行しか読めません"},
    {"{1} \"{2}\" has control characters, here as blanks",
     "{1} の「{2}」に制御文字があります（空白にしました）"},
    {"{1} \"{2}\" is not text", "{1} の「{2}」は文字として読めません"},
    {"{1} \"{2}\" is not a {3}", "{1} の「{2}」は{3}ではありません"},
    {"{1} cannot be flushed", "{1} をディスクに書き終えられません"},
    {"{1} cannot be written", "{1} に書けません"},
    {"{1} is there already, and an import makes a new one: move it away first",
     "{1} がすでにあります。取り込みは新しいデータベースを作るので、先に別の場所へ移して下さい"},
};
inline constexpr Phrase jetPlaces[] = {{"books", "帳簿"}, {"file", "ファイル"}};
inline constexpr Phrase ofTable{"{1}: {2}\n", "{1}：{2}\n"};
inline constexpr Phrase ofRow{"{1} row {2}: {3}\n", "{1} の {2} 行目：{3}\n"};
inline constexpr Phrase columnByPlace{"{1}: column {2} is taken from {3}, by its position\n",
                                      "{1}：列 {2} は、位置から「{3}」とみなしました\n"};
inline constexpr Phrase rowsCarried{"{1}: {2} of {3} rows\n", "{1}：{3} 行のうち {2} 行\n"};
inline constexpr Phrase nothingWritten{"{1}: {2}; nothing was written", "{1}：{2}。何も作っていません"};
inline constexpr Phrase problemsSoNothing{
    "{1} problems; nothing was written (--anyway writes what can be carried)\n",
    "{1} 件の問題があるので、何も作っていません（--anyway を付けると、取り込めるものだけで作ります）\n"};
inline constexpr Phrase madeButNot{"made {1}, but not {2}: {3}", "{1} を作りましたが、{2} を作れません：{3}"};
inline constexpr Phrase madeWithProblems{"made {1}, with {2} problems\n",
                                         "{1} を作りました（{2} 件の問題があります）\n"};
inline constexpr Phrase madeAllWell{"made {1}, all is well\n", "{1} を作りました。異常はありません\n"};

// ---- the tool

inline constexpr Phrase complaint{"tagdb: {1}\n", "tagdb: {1}\n"};
inline constexpr Phrase line{"{1}\n", "{1}\n"};
inline constexpr Phrase about{"{1}: {2}", "{1}：{2}"};
inline constexpr Phrase cannotOpen{"cannot open {1}: {2}", "{1} を開けません：{2}"};
inline constexpr Phrase cannotRead{"cannot read {1}", "{1} を読めません"};
inline constexpr Phrase cannotReadBecause{"cannot read {1}: {2}", "{1} を読めません：{2}"};
inline constexpr Phrase cannotWrite{"cannot write {1}: {2}", "{1} に書けません：{2}"};
inline constexpr Phrase cannotMake{"cannot make {1}: {2}", "{1} を作れません：{2}"};
inline constexpr Phrase made{"made {1}\n", "{1} を作りました\n"};
inline constexpr Phrase staysAsItIs{"{1} is there already and stays as it is",
                                    "{1} はすでにあるので、そのままにします"};
inline constexpr Phrase hasRows{"{1} has rows; the sample goes into an empty database only",
                                "{1} に行があります。見本は空のデータベースにだけ入ります"};
inline constexpr Phrase sampleOf{"sample of {1}: {2}", "{1} の見本：{2}"};
inline constexpr Phrase rowsOf{"{1}: {2} rows\n", "{1}：{2} 行\n"};
inline constexpr Phrase allIsWell{"all is well\n", "異常はありません\n"};
inline constexpr Phrase problemCount{"{1} problems\n", "{1} 件の問題があります\n"};
inline constexpr Phrase noTable{"no table {1}; there are{2}",
                                "表「{1}」はありません。あるのは次の表です：{2}"};

// ---- lines of CSV files

inline constexpr Phrase atLine{"line {1}: {2}", "{1} 行目：{2}"};
inline constexpr Phrase atPlace{"line {1}, column {2}: {3}", "{1} 行目 {2} 文字目：{3}"};
inline constexpr Phrase quoteWithoutEnd{
    "a quoted field has no end",
    "「\"」で始まる欄が閉じていません。表計算ソフトで開き、この欄の「\"」を直して、CSV で保存し直して下さい"};
inline constexpr Phrase textAfterQuote{
    "a field ends with something else than a comma or the end of the line",
    "欄の途中に「\"」があります。表計算ソフトで開き、この欄の「\"」を直して、CSV で保存し直して下さい"};
inline constexpr Phrase oldMacLines{
    "its lines end as on an old Macintosh (CR alone); save it with the line ends of Windows or Linux",
    "改行が古い Macintosh の形式（CR だけ）です。表計算ソフトで開き、「CSV UTF-8」または Windows の CSV "
    "として保存し直して下さい"};
inline constexpr Phrase noColumn{"no column \"{1}\" in {2}", "列「{1}」は {2} にありません"};
inline constexpr Phrase columnTwice{"column \"{1}\" is there twice", "列「{1}」が二つあります"};
inline constexpr Phrase notThatKind{"column {1}: \"{2}\" is not a {3}", "列 {1}：「{2}」は{3}ではありません"};
inline constexpr Phrase notUtf8{"not text in UTF-8 (a file in code page 932 needs --cp932)",
                                "UTF-8 の文字ではありません（シフト JIS のファイルには --cp932 を付けます）"};
inline constexpr Phrase notCp932{"not text in code page 932", "シフト JIS（CP932）の文字ではありません"};
inline constexpr Phrase fileIsEmpty{"the file is empty", "ファイルに何も書かれていません"};
inline constexpr Phrase fieldCount{"{1} fields instead of {2}", "欄が {2} 個でなく {1} 個あります"};
inline constexpr Phrase keyThere{"this key is there already", "同じコードの行がすでにあります"};
inline constexpr Phrase partsNotCarried{"the stock of the parts cannot be carried forward: {1}",
                                        "部品の在庫を繰り越せません：{1}"};
inline constexpr Phrase nothingStored{"{1}: {2}; nothing was stored", "{1}：{2}。何も登録していません"};

// ---- where an export may go

inline constexpr Phrase notInCp932{"{1} holds characters that code page 932 does not have",
                                   "{1} に、シフト JIS（CP932）にない文字があります"};
inline constexpr Phrase neverReplaced{
    "{1} is a database, or belongs to one; an export never takes its place",
    "{1} はデータベースか、その一部です。書き出しで置き換えることはありません"};
inline constexpr Phrase folderOfShop{"{1} is in a folder of the shop's databases; choose another",
                                     "{1} はお店のデータベースのフォルダの中です。ほかの場所を選んで下さい"};
inline constexpr Phrase fileIsThere{"{1} is there already; --force replaces it",
                                    "{1} はすでにあります。--force を付けると置き換えます"};

// ---- the check of the books

inline constexpr Phrase fileUnreadable{"the file cannot be read: {1}", "ファイルを読めません：{1}"};
inline constexpr Phrase fileDamaged{"the file is damaged: {1}", "ファイルが壊れています：{1}"};
inline constexpr Phrase tableUnreadable{"table {1} cannot be read: {2}", "表 {1} を読めません：{2}"};
inline constexpr Phrase cellOf{"{1} row {2} {3} \"{4}\"", "{1} の {2} 行目、{3} の「{4}」"};
inline constexpr Phrase isNotText{"{1} is not text", "{1}は文字として読めません"};
inline constexpr Phrase isNot{"{1} is not a {2}", "{1}は{2}ではありません"};
inline constexpr Phrase stockDiffers{"stock of {1} is {2}, its movements make {3}",
                                     "{1} の在庫数は {2} ですが、入出荷の記録では {3} です"};
inline constexpr Phrase noStockRow{"no stock row for {1}, its movements make {2}",
                                   "{1} の在庫の行がありません。入出荷の記録では {2} です"};
inline constexpr Phrase stockNotComputed{"the stock cannot be computed: {1}", "在庫数を計算できません：{1}"};

// ---- backups

inline constexpr Phrase noBackupMade{"no backup was made: {1}", "写しを作れませんでした：{1}"};
inline constexpr Phrase nothingRestored{"nothing was restored: {1}", "何も戻していません：{1}"};
inline constexpr Phrase stockUnreadable{"the stock cannot be read: {1}", "在庫を読めません：{1}"};
inline constexpr Phrase othersHold{"another program holds {1}", "{1} をほかのプログラムが使用中です"};
inline constexpr Phrase copyNotOpened{"the copy cannot be opened: {1}", "写しを開けません：{1}"};
inline constexpr Phrase copyDiffers{"the copy is not what was copied",
                                    "写しが元のデータベースと同じではありません"};
inline constexpr Phrase atWorkThere{"{1}: another backup or restore is running there",
                                    "{1} で、ほかの写しの作成か復元が行われています"};
inline constexpr Phrase leftOver{"{1} is left from a run that was cut short and cannot be removed",
                                 "{1} は途中で止まった処理の残りですが、消せません"};
inline constexpr Phrase notWritten{"{1} cannot be written", "{1} に書けません"};
inline constexpr Phrase notFlushed{"{1} cannot be flushed", "{1} をディスクに書き終えられません"};
inline constexpr Phrase notRemoved{"{1} cannot be removed", "{1} を消せません"};
inline constexpr Phrase notReplaced{"{1} cannot be replaced", "{1} を置き換えられません"};
inline constexpr Phrase verified{"verified, {1} stock figures", "検証済み、在庫数 {1} 件"};
inline constexpr Phrase booksDoNotHold{"a true copy, but its books have {1} problems",
                                       "正しい写しですが、記録に {1} 件の問題があります"};
inline constexpr Phrase notToBeUsed{"NOT TO BE USED: it has changed since it was verified",
                                    "使えません：検証した後で変わっています"};
inline constexpr Phrase notVerified{"not verified", "検証されていません"};
inline constexpr Phrase madeCopy{"{1}  {2}\n", "{1}  {2}\n"};
inline constexpr Phrase removedCopy{"removed {1}\n", "{1} を消しました\n"};
inline constexpr Phrase listedCopy{"{1}  {2} bytes  {3}{4}\n", "{1}  {2} バイト  {3}{4}\n"};
inline constexpr Phrase keptByRestore{", kept by a restore", "、復元のときに残したもの"};
inline constexpr Phrase verifiedCount{"{1} verified copies in {2}\n", "検証済みの写しは {1} 個：{2}\n"};
inline constexpr Phrase noShopToCopy{"no database in {1}; nothing to copy\n",
                                     "{1} にデータベースがないので、写しは作りません\n"};

// ---- restore

inline constexpr Phrase isNotThere{"{1} is not there", "{1} はありません"};
inline constexpr Phrase notFinished{"{1} is not a finished copy: it has a {2}",
                                    "{1} は完成した写しではありません（{2} があります）"};
inline constexpr Phrase changedSince{"{1} has changed since it was verified",
                                     "{1} は検証した後で変わっています"};
inline constexpr Phrase notADatabase{"it cannot be opened as a database: {1}",
                                     "データベースとして開けません：{1}"};
inline constexpr Phrase problemsInIt{"{1} problems in it (--anyway restores it in spite of them)",
                                     "{1} 件の問題があります（--anyway を付けると、それでも戻します）"};
inline constexpr Phrase isHistory{
    "{1} is a history file, not a copy of the shop; the program loads it (履歴の読込)",
    "{1} はお店の写しではなく履歴ファイルです。プログラムの「履歴の読込」で戻して下さい"};
inline constexpr Phrase lacksIndex{"it lacks the unique index of {1} ({2})",
                                   "{1} の重複を防ぐ索引（{2}）がありません"};
inline constexpr Phrase hasOwnObject{"it has a {1} of its own, {2}",
                                     "このプログラムのものでない{1}「{2}」があります"};
inline constexpr Phrase trigger{"trigger", "トリガー"};
inline constexpr Phrase view{"view", "ビュー"};
inline constexpr Phrase uniqueIndex{"unique index", "重複を防ぐ索引"};
inline constexpr Phrase programRuns{"the program runs; end it first",
                                    "すいすいＴＡＧが動いています。先に終了して下さい"};
inline constexpr Phrase cannotTellWhetherItRuns{
    "{1} cannot be written, so nobody can tell whether the program runs in it",
    "{1} "
    "に書き込めないため、すいすいＴＡＧが動いていないことを確かめられません。フォルダの書き込み許可を確かめて"
    "下さい"};
inline constexpr Phrase keptWhatWasThere{"kept what was there as {1}\n",
                                         "それまでのものは {1} に残しました\n"};
inline constexpr Phrase restored{"restored {1} from {2}\n", "{2} から {1} を戻しました\n"};

// ---- what to do about a daily backup that failed: read by the shop, on the program's next start

inline constexpr Phrase inUse{"another program holds the database",
                              "ほかのプログラムがデータベースを使用中です"};
inline constexpr Phrase isDamaged{"the database is damaged", "データベースが壊れています"};
inline constexpr Phrase doMakeRoom{"make room on the disk, then run \"tagdb backup\"",
                                   "不要なファイルを削除して、空き容量を増やして下さい。"};
inline constexpr Phrase doAllowWriting{"see that the folder can be written, then run \"tagdb backup\"",
                                       "フォルダの 書き込み許可を確認して下さい。"};
inline constexpr Phrase doEndOthers{"end the other program, then run \"tagdb backup\"",
                                    "データベースを使用中の 他のプログラムを終了して下さい。"};
inline constexpr Phrase doRestore{"restore a copy: \"tagdb restore COPY\"",
                                  "バックアップから 復元して下さい。"};
inline constexpr Phrase doCheck{"see \"tagdb check\"",
                                "端末で 「 tagdb check 」 を実行し、内容を確認して下さい。"};
inline constexpr Phrase doTryAgain{"run \"tagdb backup\" and see what it says",
                                   "端末で 「 tagdb backup 」 を実行し、表示を確認して下さい。"};
inline constexpr Phrase booksOfTheCopy{"the copy was made, but {1} of its figures do not hold",
                                       "写しは作りましたが、在庫数と記録の合わないところが {1} 件あります。"};

// ---- help

inline constexpr Phrase whatItIs{"Makes and checks the program folder of suisuitag.\n\nCommands:\n",
                                 "suisuitag のプログラムフォルダを作り、検査します。\n\nコマンド:\n"};
inline constexpr Phrase exitStatus{
    "Exit status: 0 good, 1 problems found (check, import FILE, backup), 2 wrong use or failure.",
    "終了ステータス: 0 異常なし、1 検査で問題が見つかった (check, import FILE, backup)、2 "
    "使い方の誤り、または失敗"};
inline constexpr Phrase helpCreate{"makes the working database and the empty template",
                                   "作業用のデータベースと空のデータベースを作る"};
inline constexpr Phrase helpSample{"fills an empty database with a small shop",
                                   "空のデータベースに見本のお店を入れる"};
inline constexpr Phrase helpCheck{"checks the file, the encodings and every stock figure",
                                  "ファイル、文字コード、すべての在庫数を調べる"};
inline constexpr Phrase helpExport{"writes a table as CSV", "表を CSV に書き出す"};
inline constexpr Phrase helpImportTable{"adds the records of a CSV file to a table", "CSV の行を表に加える"};
inline constexpr Phrase helpForms{"writes the forms that are missing in DIR: staff, partners, goods, parts",
                                  "担当者・取引先・商品・部品の表のうち、DIR にないものを作る"};
inline constexpr Phrase helpImportForms{"takes the forms in DIR over, or reports what is wrong in them",
                                        "DIR の表を取り込む。誤りがあれば、それを示す"};
inline constexpr Phrase helpImportJet{"makes the working database of a Jet 3 or Jet 4 file",
                                      "Jet 3、Jet 4 のファイルから作業用のデータベースを作る"};
inline constexpr Phrase helpBackup{"adds a verified copy to the backups, also while the program runs",
                                   "検証した写しを加える。プログラムの使用中でもよい"};
inline constexpr Phrase helpList{"lists the copies and which of them are verified",
                                 "写しと、検証済みかどうかを一覧する"};
inline constexpr Phrase helpRestore{"puts a copy in the place of the working database, which it keeps",
                                    "写しを戻す。それまでのデータベースも残る"};
inline constexpr Phrase optionHelp{"Lists the commands and options.", "コマンドとオプションを表示する"};
inline constexpr Phrase optionBase{"The program folder (default: the folder of this program).",
                                   "プログラムフォルダ (省略時: このプログラムのフォルダ)"};
inline constexpr Phrase optionCp932{"CSV files are in code page 932 instead of UTF-8.",
                                    "CSV の文字コードを UTF-8 でなく CP932 とする"};
inline constexpr Phrase optionForce{"export: replaces a file that is there already.",
                                    "export: すでにあるファイルを置き換える"};
inline constexpr Phrase optionList{"backup: lists the copies instead of making one.",
                                   "backup: 写しを作らずに一覧する"};
inline constexpr Phrase optionTo{
    "backup, restore: the folder of the copies (default: backup in the program folder).",
    "backup, restore: 写しのフォルダ (省略時: プログラムフォルダの backup)"};
inline constexpr Phrase optionKeep{"backup: how many copies to keep (default: 14).",
                                   "backup: 残す写しの数 (省略時: 14)"};
inline constexpr Phrase optionDaily{
    "backup: the unattended daily run. It does nothing without a database; the program shows a failure at "
    "its next start.",
    "backup: 毎日の自動実行。データベースがなければ何もせず、失敗は次の起動のときにプログラムが知らせる"};
inline constexpr Phrase optionAnyway{"import FILE, restore: goes on in spite of problems.",
                                     "import FILE, restore: 正しくないものがあっても続ける"};
inline constexpr Phrase argumentCommand{"What to do.", "すること"};
inline constexpr Phrase unknownCommand{"no such command, or not these arguments: {1}",
                                       "このようなコマンドはないか、引数が違います：{1}"};
inline constexpr Phrase noCommand{"a command is missing", "コマンドがありません"};
inline constexpr Phrase badKeep{"--keep needs a whole number of 1 or more, not \"{1}\"",
                                "--keep には 1 以上の整数を指定します（「{1}」ではありません）"};
inline constexpr Phrase unknownOption{"no such option: {1}", "このようなオプションはありません：{1}"};
inline constexpr Phrase badOption{"{1}", "オプションが正しくありません：{1}"};
inline constexpr Phrase seeHelp{"\"tagdb --help\" lists the commands and options",
                                "「tagdb --help」でコマンドとオプションを見られます"};

} // namespace suisui::phrases
