#include "host/GuideBrowser.h"

#include <algorithm>

#include <QAbstractTextDocumentLayout>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QScrollBar>

namespace {

constexpr int kWidestPicture = 660;

// What links to a heading say behind #: blanks are hyphens there, and marks are left out.
QString Anchor(const QString& heading)
{
    QString anchor;
    for (const QChar c : heading)
        if (c == u' ')
            anchor += u'-';
        else if (c.isLetterOrNumber() || c == u'-' || c == u'_')
            anchor += c.toLower();
    return anchor;
}

} // namespace

GuideBrowser::GuideBrowser(QWidget* parent) : QTextBrowser(parent)
{
    setOpenLinks(false);
    connect(this, &QTextBrowser::anchorClicked, this, &GuideBrowser::Follow);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &GuideBrowser::Moved);
}

bool GuideBrowser::Load(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    m_folder = QFileInfo(path).absolutePath();
    document()->setMarkdown(QString::fromUtf8(file.readAll()),
                            QTextDocument::MarkdownDialectGitHub);
    ListHeadings();
    return true;
}

void GuideBrowser::ListHeadings()
{
    m_headings.clear();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        if (const int level = block.blockFormat().headingLevel(); level > 0)
            m_headings.push_back({block.text(), level, block.position()});
}

bool GuideBrowser::GoTo(const QString& heading)
{
    const auto found = std::find_if(m_headings.begin(), m_headings.end(),
                                    [&](const Heading& one) { return one.text == heading; });
    if (found == m_headings.end()) return false;
    GoTo(found->position);
    return true;
}

void GuideBrowser::GoTo(int position)
{
    const QTextBlock block = document()->findBlock(position);
    const double top = document()->documentLayout()->blockBoundingRect(block).top();
    verticalScrollBar()->setValue(static_cast<int>(top));
    QTextCursor cursor(document());
    cursor.setPosition(position);
    setTextCursor(cursor);
    verticalScrollBar()->setValue(static_cast<int>(top));
}

int GuideBrowser::Shown() const
{
    const int line = fontMetrics().height();
    const int position = cursorForPosition(QPoint(line, line)).position();
    const auto behind = std::find_if(m_headings.begin(), m_headings.end(),
                                     [&](const Heading& one) { return one.position > position; });
    return static_cast<int>(behind - m_headings.begin()) - 1;
}

void GuideBrowser::Follow(const QUrl& link)
{
    const QString anchor = link.fragment(QUrl::FullyDecoded);
    for (const Heading& one : m_headings)
        if (link.path().isEmpty() && Anchor(one.text) == anchor) return GoTo(one.position);
    if (link.path().isEmpty()) return;
    QDesktopServices::openUrl(
        link.isRelative() ? QUrl::fromLocalFile(QDir(m_folder).filePath(link.path())) : link);
}

int GuideBrowser::Find(const QString& text, bool backwards)
{
    QList<QTextCursor> places;
    if (!text.isEmpty())
        for (QTextCursor at = document()->find(text); !at.isNull(); at = document()->find(text, at))
            places << at;
    QList<ExtraSelection> marks;
    for (const QTextCursor& place : places) {
        QTextCharFormat format;
        format.setBackground(palette().highlight());
        format.setForeground(palette().highlightedText());
        marks.push_back({place, format});
    }
    setExtraSelections(marks);
    m_found = 0;
    if (places.isEmpty()) return 0;
    // A text that is typed on is looked for where it began.
    const bool isNew = text != std::exchange(m_searched, text);
    const int here = isNew ? textCursor().selectionStart() - 1 : textCursor().selectionStart();
    const auto isBehind = [here](const QTextCursor& one) { return one.selectionStart() > here; };
    auto next = std::find_if(places.begin(), places.end(), isBehind) - places.begin();
    if (backwards) {
        const auto notBefore = std::find_if(places.begin(), places.end(), [here](const auto& one) {
            return one.selectionStart() >= here;
        });
        next = notBefore - places.begin() + places.size() - 1;
    }
    const qsizetype place = next % places.size();
    m_found = static_cast<int>(place) + 1;
    setTextCursor(places[place]);
    ensureCursorVisible();
    return static_cast<int>(places.size());
}

// A picture is as wide as there is room for.
QVariant GuideBrowser::loadResource(int type, const QUrl& name)
{
    if (type != QTextDocument::ImageResource) return {};
    const QImage picture(QDir(m_folder).filePath(name.path(QUrl::FullyDecoded)));
    return picture.width() > kWidestPicture
               ? picture.scaledToWidth(kWidestPicture, Qt::SmoothTransformation)
               : picture;
}
