// The wait window of long work, with a bar that shows how far the work is.
#pragma once

#include <memory>

#include <QElapsedTimer>

#include "frame/support/WaitWindow.h"

namespace Ui {
class frm_Wait;
}

namespace suisui {

class frm_Wait final : public WaitWindow
{
    Q_OBJECT

public:
    frm_Wait();
    ~frm_Wait() override;

    /// Shows the window for the job \a waitTag. \a maximum is the number of rows of the buffer that the job
    /// works on; the history jobs have fixed numbers of steps, whatever is passed.
    void load(const QString& waitTag, int maximum);
    [[nodiscard]] QString WaitTag() const { return m_waitTag; }

    /// Moves the bar. Often enough for the eye, and no oftener, it is painted and events run; so it may be
    /// called for every row.
    void setProgress(int value);
    [[nodiscard]] int progress() const { return m_value; }
    [[nodiscard]] int maximum() const;

protected:
    void tick() override;
    void closed() override;

private:
    void paintLabel(bool blue);

    std::unique_ptr<Ui::frm_Wait> m_ui;
    QString m_waitTag;
    QElapsedTimer m_sincePaint;
    int m_value = 0;
    bool m_blue = false;
};

} // namespace suisui
