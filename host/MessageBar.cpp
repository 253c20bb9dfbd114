#include "host/MessageBar.h"

#include <utility>

#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>

#include "host/ControlIds.h"

namespace {

// The bar's tint: the window's colour with some of the kind's in it, so that it fits a light and
// a dark palette.
QColor Tint(const QColor& window, MessageBar::Kind kind)
{
    static constexpr QColor kTints[] = {QColor(0x2e, 0x8b, 0x57), QColor(0xd0, 0x98, 0x00),
                                        QColor(0xd0, 0x30, 0x30)};
    const QColor tint = kTints[static_cast<int>(kind)];
    const auto mixed = [](int a, int b) { return (a * 4 + b) / 5; };
    return QColor(mixed(window.red(), tint.red()), mixed(window.green(), tint.green()),
                  mixed(window.blue(), tint.blue()));
}

QStyle::StandardPixmap IconOf(MessageBar::Kind kind)
{
    switch (kind) {
    case MessageBar::Kind::Note:
        return QStyle::SP_MessageBoxInformation;
    case MessageBar::Kind::Change:
        return QStyle::SP_BrowserReload;
    default:
        return QStyle::SP_MessageBoxWarning;
    }
}

} // namespace

MessageBar::MessageBar(Kind kind, int controlId, QWidget* parent)
    : QFrame(parent), m_kind(kind), m_icon(new QLabel), m_text(new QLabel),
      m_button(new QPushButton)
{
    SetControlId(this, controlId);
    SetControlId(m_text, ControlId::BarText);
    SetControlId(m_button, ControlId::BarAction);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* close = new QToolButton;
    SetControlId(close, ControlId::BarClose);
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setAutoRaise(true);
    close->setToolTip(tr("关闭"));
    close->setAccessibleName(tr("关闭"));

    auto* layout = new QHBoxLayout(this);
    layout->addWidget(m_icon);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_button);
    layout->addWidget(close);
    setAutoFillBackground(true);
    connect(close, &QToolButton::clicked, this, &QWidget::hide);
    connect(m_button, &QPushButton::clicked, this, [this] {
        hide();
        if (const Action action = std::exchange(m_action, {})) action();
    });
    Paint();
    hide();
}

void MessageBar::Show(const QString& text, const QString& caption, Action action)
{
    m_text->setText(text);
    m_button->setText(caption);
    m_button->setVisible(!caption.isEmpty());
    m_action = std::move(action);
    show();
}

QString MessageBar::Text() const
{
    return m_text->text();
}

void MessageBar::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) Paint();
}

void MessageBar::Paint()
{
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    m_icon->setPixmap(style()->standardIcon(IconOf(m_kind)).pixmap(size, size));
    QPalette tinted = QGuiApplication::palette();
    tinted.setColor(QPalette::Window, Tint(tinted.color(QPalette::Window), m_kind));
    setPalette(tinted);
}
