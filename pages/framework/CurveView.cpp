#include "pages/framework/CurveView.h"

#include <algorithm>
#include <cmath>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QToolTip>

#include "platform/mfc/FileChoice.h"
#include "platform/mfc/MessageBox.h"
#include "platform/mfc/QtText.h"

namespace designspec {

namespace {

// All curves of a content that have points, one behind the other.
std::vector<const Curve*> FilledCurves(const CurveContent& content)
{
    std::vector<const Curve*> curves;
    for (const CurveChart& chart : content.charts)
        for (const Curve& curve : chart.curves)
            if (!curve.points.empty()) curves.push_back(&curve);
    return curves;
}

struct PointPlace {
    std::size_t curve = 0, point = 0;
};

std::optional<PointPlace> Find(const std::vector<const Curve*>& curves,
                               const std::optional<CurveCell>& cell)
{
    for (std::size_t i = 0; i < curves.size(); ++i)
        for (std::size_t n = 0; n < curves[i]->points.size(); ++n) {
            const CurvePoint& point = curves[i]->points[n];
            if (cell == CurveCell{point.line, point.column}) return PointPlace{i, n};
        }
    return {};
}

std::size_t NearestTo(const Curve& curve, double at)
{
    const auto nearest =
        std::min_element(curve.points.begin(), curve.points.end(), [at](auto& a, auto& b) {
            return std::abs(a.at - at) < std::abs(b.at - at);
        });
    return static_cast<std::size_t>(nearest - curve.points.begin());
}

// Where a key goes from a point; there is one. At the end it stays.
PointPlace MovedBy(int key, const std::vector<const Curve*>& curves, PointPlace place)
{
    const Curve& curve = *curves[place.curve];
    const std::size_t last = curve.points.size() - 1;
    switch (key) {
    case Qt::Key_Left:
        return {place.curve, place.point == 0 ? 0 : place.point - 1};
    case Qt::Key_Right:
        return {place.curve, std::min(place.point + 1, last)};
    case Qt::Key_Home:
        return {place.curve, 0};
    case Qt::Key_End:
        return {place.curve, last};
    default:
        break;
    }
    const bool isUp = key == Qt::Key_Up;
    if (isUp ? place.curve == 0 : place.curve + 1 == curves.size()) return place;
    const std::size_t to = isUp ? place.curve - 1 : place.curve + 1;
    return {to, NearestTo(*curves[to], curve.points[place.point].at)};
}

} // namespace

CurveView::CurveView(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(QStringLiteral("图"));
}

void CurveView::Show(CurveContent content)
{
    m_content = std::move(content);
    setAccessibleDescription(Readout());
    update();
}

CurvePicture CurveView::Picture() const
{
    return {m_content, size(), font(), palette()};
}

QSize CurveView::minimumSizeHint() const
{
    return CurvePicture::LeastSize(QFontMetricsF(font())).toSize();
}

QPoint CurveView::PlaceOf(const CurveCell& cell) const
{
    return Picture().PlaceOf(cell).toPoint();
}

std::optional<double> CurveView::ReadAt(const CurvePicture& picture) const
{
    if (m_cursor) return m_cursor->x();
    if (!hasFocus() || !m_content.current) return {};
    const QPointF place = picture.PlaceOf(*m_content.current);
    return place.isNull() ? std::nullopt : std::optional(place.x());
}

QString CurveView::Readout() const
{
    const CurvePicture picture = Picture();
    const std::optional<double> x = ReadAt(picture);
    return x ? picture.Readout(*x) : QString();
}

void CurveView::paintEvent(QPaintEvent*)
{
    const CurvePicture picture = Picture();
    QPainter painter(this);
    picture.Paint(painter);
    if (const std::optional<double> x = ReadAt(picture)) picture.PaintReadout(painter, *x);
    if (!hasFocus()) return;
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

bool CurveView::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        if (!ShowToolTipAt(help->pos(), help->globalPos())) QToolTip::hideText();
        return true;
    }
    return QWidget::event(event);
}

// What the ring around a point says.
bool CurveView::ShowToolTipAt(const QPoint& place, const QPoint& global)
{
    const CurvePicture picture = Picture();
    const CurvePoint* const point = picture.PointAt(place);
    if (!point || !point->isOdd) return false;
    QToolTip::showText(global, ToToolTip(ToQString(kOddValueText)), this);
    return true;
}

void CurveView::mouseMoveEvent(QMouseEvent* event)
{
    m_cursor = event->position();
    setCursor(Picture().PointAt(event->position()) ? Qt::PointingHandCursor : Qt::ArrowCursor);
    update();
}

void CurveView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return;
    const CurvePicture picture = Picture();
    if (const CurvePoint* const point = picture.PointAt(event->position()))
        emit Chosen({point->line, point->column});
}

void CurveView::leaveEvent(QEvent*)
{
    m_cursor.reset();
    update();
}

void CurveView::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isPlain = !(event->modifiers() & ~Qt::KeypadModifier);
    if (event->matches(QKeySequence::Copy))
        CopyPicture();
    else if (isPlain && enter && Find(FilledCurves(m_content), m_content.current))
        emit Chosen(*m_content.current);
    else if (!isPlain || !Move(event->key()))
        QWidget::keyPressEvent(event);
}

bool CurveView::Move(int key)
{
    constexpr int kKeys[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up,
                             Qt::Key_Down, Qt::Key_Home,  Qt::Key_End};
    if (std::find(std::begin(kKeys), std::end(kKeys), key) == std::end(kKeys)) return false;
    const std::vector<const Curve*> curves = FilledCurves(m_content);
    if (curves.empty()) return true;
    const std::optional<PointPlace> now = Find(curves, m_content.current);
    const PointPlace to = now ? MovedBy(key, curves, *now) : PointPlace();
    const CurvePoint& point = curves[to.curve]->points[to.point];
    m_cursor.reset(); // it is the keys' turn
    const CurveCell cell{point.line, point.column};
    m_content.current = cell;
    update();
    setAccessibleDescription(Readout());
    emit Moved(cell);
    return true;
}

// Pictures

PictureFile CurveView::File() const
{
    CurveContent content = m_content;
    content.current.reset(); // nobody works on paper
    return PictureFile(*this, [this, content](QPainter& painter, const QFont& inFont) {
        CurvePicture(content, size(), inFont, PaperPalette()).Paint(painter);
    });
}

bool CurveView::SavePicture(const QString& file) const
{
    return File().Save(file);
}

void CurveView::CopyPicture() const
{
    auto* const both = new QMimeData;
    both->setImageData(File().Image());
    both->setData(QStringLiteral("image/svg+xml"), File().Svg());
    QApplication::clipboard()->setMimeData(both);
}

void CurveView::AskAndSave()
{
    const QString path = AskFileToSave(this, QStringLiteral("保存图"),
                                       QStringLiteral("图片 (*.png);;矢量图 (*.svg)"),
                                       QStringLiteral("png"), m_fileName, IfThere::Ask);
    if (!path.isEmpty() && !SavePicture(path))
        MessageBox(this, L"图没有写入: " + FromQString(path), L"提示", MB_ICONERROR);
}

void CurveView::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu menu(this);
    const bool isCompared = !m_content.comparedName.empty();
    menu.addAction(QStringLiteral("与其他规范比较…"), this, [this] { emit CompareWanted(true); });
    menu.addAction(QStringLiteral("不再比较"), this, [this] { emit CompareWanted(false); })
        ->setEnabled(isCompared);
    menu.addSeparator();
    menu.addAction(QStringLiteral("复制图"), QKeySequence(QKeySequence::Copy), this,
                   [this] { CopyPicture(); });
    menu.addAction(QStringLiteral("保存图…"), this, [this] { AskAndSave(); });
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    m_cursor.reset(); // the mouse goes elsewhere
    update();
    menu.exec(isByKey ? mapToGlobal(rect().center()) : event->globalPos());
}

void CurveView::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void CurveView::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}

} // namespace designspec
