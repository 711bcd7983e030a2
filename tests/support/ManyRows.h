// The question that every search asks before it shows many rows.
#pragma once

#include "platform/core/MsgBox.h"

namespace suisui::test {

[[nodiscard]] inline Box manyRowsQuestion(int count)
{
    return {.title = QStringLiteral("表示の確認"),
            .text = QStringLiteral(
                        "検索結果のデータが多いため\r\n表示に時間が掛かる可能性があります。　　　\r\n\r\n"
                        "　　　（検索結果： %1 件）\r\n\r\n表示を行っても、よろしいですか？")
                        .arg(count),
            .icon = BoxIcon::Question,
            .buttons = BoxButtons::YesNo,
            .defaultButton = BoxAnswer::Yes};
}

} // namespace suisui::test
