// What a dialog makes of a scanned value; what each value means is in store/ScannedValue.h.
#pragma once

#include <functional>

#include "store/ScannedValue.h"

namespace suisui {

/// BarCodeChk of a dialog: "P" presses OK, "T" presses the other button, key codes are typed, and everything
/// else is dropped.
void dialogBarCodeChk(const QString& value, const std::function<void()>& pressOk,
                      const std::function<void()>& pressEnd,
                      const std::function<void(const QString&)>& sendKeys);

} // namespace suisui
