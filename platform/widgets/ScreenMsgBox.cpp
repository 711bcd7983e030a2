#include "platform/widgets/ScreenMsgBox.h"

#include <vector>

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QTimer>

#include "platform/widgets/AppFont.h"
#include "platform/widgets/BoxText.h"
#include "platform/widgets/EnterButton.h"
#include "platform/widgets/EnterKey.h"
#include "platform/widgets/FocusColor.h"
#include "platform/widgets/Hourglass.h"
#include "platform/widgets/ReaderPace.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

struct BoxButton
{
    BoxAnswer answer;
    const char16_t* caption;
    const char16_t* name;
};

constexpr BoxButton okButton{BoxAnswer::Ok, u"OK", u"msgBoxOk"};
constexpr BoxButton yesButton{BoxAnswer::Yes, u"はい(&Y)", u"msgBoxYes"};
constexpr BoxButton noButton{BoxAnswer::No, u"いいえ(&N)", u"msgBoxNo"};
constexpr BoxButton cancelButton{BoxAnswer::Cancel, u"キャンセル", u"msgBoxCancel"};

std::vector<BoxButton> buttonsOf(BoxButtons buttons)
{
    switch (buttons) {
    case BoxButtons::YesNo:
        return {yesButton, noButton};
    case BoxButtons::YesNoCancel:
        return {yesButton, noButton, cancelButton};
    case BoxButtons::Ok:
        break;
    }
    return {okButton};
}

/// What the box answers when its window is closed: the answer that changes least.
BoxAnswer answerOfClosing(BoxButtons buttons)
{
    switch (buttons) {
    case BoxButtons::YesNo:
        return BoxAnswer::No;
    case BoxButtons::YesNoCancel:
        return BoxAnswer::Cancel;
    case BoxButtons::Ok:
        break;
    }
    return BoxAnswer::Ok;
}

QStyle::StandardPixmap pictureOf(BoxIcon icon)
{
    switch (icon) {
    case BoxIcon::Question:
        return QStyle::SP_MessageBoxQuestion;
    case BoxIcon::Exclamation:
        return QStyle::SP_MessageBoxWarning;
    case BoxIcon::Information:
        return QStyle::SP_MessageBoxInformation;
    case BoxIcon::Stop:
        break;
    }
    return QStyle::SP_MessageBoxCritical;
}

class BoxDialog final : public QDialog
{
public:
    BoxDialog(const Box& box, QWidget* parent) : QDialog(parent), m_answer(answerOfClosing(box.buttons))
    {
        setObjectName(u"msgBox"_s);
        // It is answered or closed: a box that is minimised would leave a program that takes no input.
        setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint
                       | Qt::WindowCloseButtonHint);
        setWindowTitle(box.title);
        setFont(screenFont());
        auto* picture = new QLabel(this);
        constexpr int pictureSize = 36;
        picture->setPixmap(
            style()->standardIcon(pictureOf(box.icon), nullptr, this).pixmap(pictureSize, pictureSize));
        auto* top = new QHBoxLayout;
        top->setSpacing(16);
        top->addWidget(picture, 0, Qt::AlignTop);
        top->addWidget(textOf(box), 1);
        auto* bottom = new QHBoxLayout;
        bottom->addStretch();
        for (const BoxButton& button : buttonsOf(box.buttons))
            addButton(button, box, *bottom);
        bottom->addStretch();
        auto* all = new QVBoxLayout(this);
        all->setContentsMargins(20, 20, 20, 14);
        all->setSpacing(18);
        all->addLayout(top);
        all->addLayout(bottom);
        all->setSizeConstraint(QLayout::SetFixedSize);
        m_letter.setSingleShot(true);
        connect(&m_letter, &QTimer::timeout, this, [this] { m_wanted->click(); });
    }

    [[nodiscard]] BoxAnswer answer() const { return m_answer; }

private:
    /// The text as far as the screen goes; one that is higher than that scrolls.
    QWidget* textOf(const Box& box)
    {
        constexpr QSize besideText(130, 180); // picture, buttons, margins, and the frame of the window
        const QSize room = screen()->availableSize() - besideText;
        auto* text = new BoxText(box.text, room.width(), this);
        text->setObjectName(u"msgBoxText"_s);
        if (text->sizeHint().height() <= room.height())
            return text;
        auto* area = new QScrollArea(this);
        area->setFrameShape(QFrame::NoFrame);
        area->setFocusPolicy(Qt::NoFocus);
        area->setWidget(text);
        area->setFixedSize(text->sizeHint().width() + area->verticalScrollBar()->sizeHint().width(),
                           room.height());
        return area;
    }

    void addButton(const BoxButton& button, const Box& box, QHBoxLayout& row)
    {
        auto* widget = new EnterButton(this);
        widget->setObjectName(QString::fromUtf16(button.name));
        widget->setText(QString::fromUtf16(button.caption));
        widget->setMinimumSize(100, 30);
        widget->installEventFilter(this);
        connect(widget, &QPushButton::clicked, this, [this, answer = button.answer] {
            m_answer = answer;
            accept();
        });
        row.addWidget(widget);
        const bool first = row.count() == 2; // after the stretch
        if (button.answer == box.defaultButton || (box.defaultButton == BoxAnswer::None && first)) {
            widget->setDefault(true);
            widget->setFocus();
        }
    }

    /// A letter alone answers, as on every system's own boxes. But a bar-code reader that types sends its
    /// letters in a burst, and an Enter after them: a letter counts when it comes alone.
    void keyPressEvent(QKeyEvent* event) override
    {
        m_letter.stop();
        const QString text = event->text();
        if (text.isEmpty() || !text[0].isPrint()) {
            m_burst = false;
            QDialog::keyPressEvent(event);
            return;
        }
        const bool alone = !m_burst || m_lastKey.hasExpired(slowReaderGapMs);
        m_burst = true;
        m_lastKey.start();
        m_wanted = alone ? buttonOf(text) : nullptr;
        if (m_wanted != nullptr)
            m_letter.start(slowReaderGapMs);
    }

    /// The button with the focus is cyan, as everywhere in the program.
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
            auto* button = static_cast<QPushButton*>(object);
            QPalette colors = palette();
            if (event->type() == QEvent::FocusIn)
                colors.setColor(QPalette::Button, focusColor);
            button->setPalette(colors);
        } else if (event->type() == QEvent::KeyPress && isEnter(*static_cast<QKeyEvent*>(event))) {
            m_burst = false; // the end of a code; the button presses nothing
            m_letter.stop();
        }
        return QDialog::eventFilter(object, event);
    }

    [[nodiscard]] QPushButton* buttonOf(const QString& letter) const
    {
        for (QPushButton* button : findChildren<QPushButton*>()) {
            const qsizetype mark = button->text().indexOf(u'&');
            if (mark >= 0 && letter.compare(button->text().mid(mark + 1, 1), Qt::CaseInsensitive) == 0)
                return button;
        }
        return nullptr;
    }

    QTimer m_letter{this};
    QElapsedTimer m_lastKey;
    QPushButton* m_wanted = nullptr;
    bool m_burst = false; ///< characters have come since the last other key
    BoxAnswer m_answer;
};

} // namespace

BoxAnswer ScreenMsgBox::show(const Box& box)
{
    QWidget* owner =
        QApplication::activeModalWidget() != nullptr ? QApplication::activeModalWidget() : m_parent;
    BoxDialog dialog(box, owner);
    std::optional<PointerShape> usual(Qt::ArrowCursor); // the operator is asked, not kept waiting
    dialog.setModal(true); // before it is shown: nothing else may take input for a moment
    dialog.show();
    dialog.activateWindow();
    dialog.raise();
    dialog.exec();
    usual.reset();
    if (owner != nullptr)
        owner->activateWindow(); // without a window manager nothing else does
    return dialog.answer();
}

} // namespace suisui
