#include "roadcheck/DiagramView.h"

#include <algorithm>
#include <cmath>

#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>

#include "platform/drawing/PictureFile.h"
#include "platform/mfc/QtText.h"
#include "roadcheck/DiagramPicture.h"

using namespace designspec;

namespace roadcheck {

namespace {

constexpr double kZoomStep = 1.25; // of a notch of the wheel, and of a key
constexpr double kPanStep = 0.1;   // of what is shown
constexpr int kNotch = 120;        // of the wheel

} // namespace

DiagramView::DiagramView(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName(QStringLiteral("道路图"));
}

void DiagramView::Show(const Alignment& road, std::vector<Diagram> diagrams,
                       const std::vector<Finding>& findings)
{
    m_content = {road.length, road.stations, {}, {}, -1};
    for (Diagram& diagram : diagrams) {
        const ValueSpan span = diagram.Span();
        m_content.diagrams.push_back({std::move(diagram), span});
    }
    for (const Finding& finding : findings)
        m_content.marks.push_back(
            {finding.from, finding.to, finding.rule->severity, ToShown(finding.message), true});
    m_range.SetLength(road.length);
    updateGeometry();
    Redraw();
}

void DiagramView::Clear()
{
    m_content = DiagramContent();
    m_range = StationRange();
    Redraw();
}

void DiagramView::SelectFinding(int finding)
{
    if (finding == m_content.selected) return;
    const bool isOne = finding >= 0 && static_cast<size_t>(finding) < m_content.marks.size();
    m_content.selected = isOne ? finding : -1;
    if (isOne) {
        const DiagramMark& mark = m_content.marks[static_cast<size_t>(finding)];
        m_range.Reveal(mark.from, mark.to);
    }
    Redraw();
}

void DiagramView::SetShownFindings(const std::vector<bool>& shown)
{
    for (size_t i = 0; i < m_content.marks.size(); ++i)
        m_content.marks[i].isShown = i < shown.size() && shown[i];
    Redraw();
}

DiagramPicture DiagramView::Picture() const
{
    return {m_content, m_range, size(), font(), palette()};
}

QRect DiagramView::MarkRect(int finding) const
{
    return m_content.IsEmpty() ? QRect() : Picture().MarkRect(finding).toAlignedRect();
}

QString DiagramView::Readout() const
{
    const DiagramPicture picture = Picture();
    const std::optional<double> at = CursorPlace(picture);
    return at ? picture.Readout(*at) : QString();
}

QSize DiagramView::minimumSizeHint() const
{
    return DiagramLayout::LeastSize(m_content.diagrams.size(), QFontMetricsF(font())).toSize();
}

QSize DiagramView::sizeHint() const
{
    return minimumSizeHint() * 1.6;
}

std::optional<double> DiagramView::CursorPlace(const DiagramPicture& picture) const
{
    const StationScale& scale = picture.Scale();
    if (m_content.IsEmpty() || !m_cursor || m_cursor->x() < scale.left ||
        m_cursor->x() > scale.right)
        return {};
    return scale.At(m_cursor->x());
}

void DiagramView::Redraw()
{
    m_drawn = QPixmap();
    update();
}

// Only the cursor is drawn anew while the mouse moves: a long road takes its time.
void DiagramView::paintEvent(QPaintEvent*)
{
    const DiagramPicture picture = Picture();
    const double scale = devicePixelRatioF();
    if (m_drawn.isNull() || m_drawn.devicePixelRatio() != scale) {
        m_drawn = QPixmap((QSizeF(size()) * scale).toSize());
        m_drawn.setDevicePixelRatio(scale);
        QPainter painter(&m_drawn);
        picture.Paint(painter);
    }
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_drawn);
    if (const std::optional<double> at = CursorPlace(picture)) picture.PaintCursor(painter, *at);
    if (!hasFocus()) return;
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void DiagramView::resizeEvent(QResizeEvent*)
{
    Redraw();
}

void DiagramView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) Redraw();
}

bool DiagramView::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        if (!ShowMarkToolTip(help->pos(), help->globalPos())) QToolTip::hideText();
        return true;
    }
    return QWidget::event(event);
}

bool DiagramView::ShowMarkToolTip(const QPoint& point, const QPoint& global)
{
    constexpr size_t kMost = 8;
    if (m_content.IsEmpty()) return false;
    const std::vector<int> marks = Picture().MarksAt(point);
    QStringList lines;
    for (size_t i = 0; i < marks.size() && i < kMost; ++i) {
        const DiagramMark& mark = m_content.marks[static_cast<size_t>(marks[i])];
        lines << QStringLiteral("%1: %2").arg(ToQString(SeverityLabel(mark.severity)),
                                              mark.message);
    }
    if (marks.size() > kMost) lines << QStringLiteral("…… 共 %1 条").arg(marks.size());
    if (lines.isEmpty()) return false;
    QToolTip::showText(global, ToToolTip(lines.join(QLatin1Char('\n'))), this);
    return true;
}

void DiagramView::wheelEvent(QWheelEvent* event)
{
    if (m_content.IsEmpty()) return;
    const StationScale scale = Picture().Scale();
    const QPoint turned = event->angleDelta();
    if (std::abs(turned.x()) > std::abs(turned.y()))
        m_range.Pan(-kPanStep * m_range.Length() * turned.x() / kNotch);
    else
        m_range.Zoom(std::pow(kZoomStep, static_cast<double>(turned.y()) / kNotch),
                     std::clamp(scale.At(event->position().x()), scale.from, scale.to));
    event->accept();
    Redraw();
}

void DiagramView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return;
    m_pressed = event->position();
    m_fromWhenPressed = m_range.From();
    m_isDragging = false;
}

void DiagramView::mouseMoveEvent(QMouseEvent* event)
{
    if (m_content.IsEmpty()) return;
    const DiagramPicture picture = Picture();
    const QPointF moved = event->position() - m_pressed;
    if (event->buttons() & Qt::LeftButton) {
        m_isDragging = m_isDragging || moved.manhattanLength() >= QApplication::startDragDistance();
        if (m_isDragging) {
            m_range.MoveTo(m_fromWhenPressed - moved.x() / picture.Scale().PixelsPerMetre());
            Redraw();
        }
    }
    const bool isOnMark = !picture.MarksAt(event->position()).empty();
    setCursor(m_isDragging ? Qt::ClosedHandCursor
              : isOnMark   ? Qt::PointingHandCursor
                           : Qt::ArrowCursor);
    SetCursorPlace(event->position());
}

void DiagramView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || m_content.IsEmpty()) return;
    const bool isClick = !m_isDragging;
    m_isDragging = false;
    if (!isClick) setCursor(Qt::ArrowCursor);
    if (isClick) ClickMark(Picture().MarksAt(event->position()));
}

// On a mark the second of two quick clicks is a click like any other, and comes when the button is
// released.
void DiagramView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || m_content.IsEmpty()) return;
    mousePressEvent(event);
    if (!Picture().MarksAt(event->position()).empty()) return;
    m_range.ShowAll();
    Redraw();
}

// Of several the first, or the one behind the one that is selected.
void DiagramView::ClickMark(const std::vector<int>& marks)
{
    if (marks.empty()) return;
    const auto selected = std::find(marks.begin(), marks.end(), m_content.selected);
    const bool isLast = selected == marks.end() || selected + 1 == marks.end();
    m_content.selected = isLast ? marks.front() : *(selected + 1);
    Redraw();
    emit FindingClicked(m_content.selected);
}

void DiagramView::SetCursorPlace(std::optional<QPointF> point)
{
    m_cursor = point;
    update();
}

void DiagramView::leaveEvent(QEvent*)
{
    SetCursorPlace({});
}

void DiagramView::keyPressEvent(QKeyEvent* event)
{
    const double middle = (m_range.From() + m_range.To()) / 2;
    const double step = kPanStep * m_range.Length();
    switch (event->key()) {
    case Qt::Key_Left:
        m_range.Pan(-step);
        break;
    case Qt::Key_Right:
        m_range.Pan(step);
        break;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        m_range.Zoom(kZoomStep, middle);
        break;
    case Qt::Key_Minus:
        m_range.Zoom(1 / kZoomStep, middle);
        break;
    case Qt::Key_Home:
        m_range.ShowAll();
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    Redraw();
}

bool DiagramView::SavePicture(const QString& file)
{
    const auto draw = [this](QPainter& painter, const QFont& font) {
        DiagramPicture(m_content, m_range, size(), font, PaperPalette()).Paint(painter);
    };
    return PictureFile(*this, draw).Save(file);
}

} // namespace roadcheck
