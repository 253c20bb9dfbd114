#include "platform/mfc/QtText.h"

#include <QTextDocument>

#include "base/Text.h"

// Qt's own conversions put U+FFFD in the place of a lone surrogate, hence the loops.

QString designspec::ToQString(std::wstring_view text)
{
    QString result;
    result.reserve(static_cast<qsizetype>(text.size()));
    for (wchar_t c : text) {
        const auto code = static_cast<char32_t>(c);
        if (QChar::requiresSurrogates(code)) {
            result.append(QChar(QChar::highSurrogate(code)));
            result.append(QChar(QChar::lowSurrogate(code)));
        } else {
            result.append(QChar(static_cast<char16_t>(code)));
        }
    }
    return result;
}

CString designspec::FromQString(QStringView text)
{
    CString result;
    result.reserve(static_cast<size_t>(text.size()));
    for (qsizetype i = 0; i < text.size(); ++i) {
        char32_t code = text[i].unicode();
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            code = QChar::surrogateToUcs4(text[i], text[i + 1]);
            ++i;
        }
        result.push_back(static_cast<wchar_t>(code));
    }
    return result;
}

QString designspec::ToShown(std::wstring_view text)
{
    return ToQString(Printable(text));
}

QString designspec::ToToolTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}
