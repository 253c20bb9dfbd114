#include "print/PdfText.h"

#include <algorithm>
#include <memory>
#include <sstream>

#include <QRawFont>
#include <QTextLayout>
#include <qpdf/Buffer.hh>

namespace designspec {

namespace {

// The first character of each glyph, as the painter finds it.
std::map<quint32, char16_t> FirstCharacters(const QRawFont& font)
{
    std::map<quint32, char16_t> first;
    for (char32_t c = 1; c < 0x10000; ++c) {
        if (QChar::isSurrogate(c)) continue;
        const QList<quint32> glyphs = font.glyphIndexesForString(QString(QChar(c)));
        if (!glyphs.isEmpty()) first.emplace(glyphs.front(), static_cast<char16_t>(c));
    }
    return first;
}

// A text of hexadecimal digits within <>, of the characters of one.
std::string Corrected(unsigned long character, const std::map<char16_t, char16_t>& mistaken)
{
    const auto found = mistaken.find(static_cast<char16_t>(character));
    if (found != mistaken.end()) character = found->second;
    return '<' + QString::number(character, 16).rightJustified(4, u'0').toUpper().toStdString() +
           '>';
}

unsigned long NumberIn(const std::string& token)
{
    return std::stoul(token.substr(token.find('<') + 1), nullptr, 16);
}

// A line of codes: <0001> <0003> [<9053> <8DEF> <8BBE>], or the first character alone.
std::string CorrectedLine(const std::string& line, const std::map<char16_t, char16_t>& mistaken)
{
    std::istringstream words(line);
    std::string first, last, word;
    words >> first >> last;
    std::string corrected = first + ' ' + last + " [";
    const unsigned long count = NumberIn(last) - NumberIn(first) + 1;
    if (line.find('[') == std::string::npos) {
        words >> word;
        for (unsigned long i = 0; i < count; ++i)
            corrected += Corrected(NumberIn(word) + i, mistaken) + ' ';
    } else {
        while (words >> word)
            if (word.find('<') != std::string::npos)
                corrected += Corrected(NumberIn(word), mistaken) + ' ';
    }
    return corrected + ']';
}

std::string CorrectedMap(const std::string& map, const std::map<char16_t, char16_t>& mistaken)
{
    std::istringstream lines(map);
    std::string corrected;
    bool isRange = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.find("endbfrange") != std::string::npos) isRange = false;
        corrected += (isRange ? CorrectedLine(line, mistaken) : line) + '\n';
        if (line.find("beginbfrange") != std::string::npos) isRange = true;
    }
    return corrected;
}

} // namespace

std::map<char16_t, char16_t> MistakenCharacters(const QString& text, const QFont& font)
{
    std::map<char16_t, char16_t> mistaken;
    std::map<QString, std::map<quint32, char16_t>> fonts;
    for (const QChar c : text) {
        QTextLayout layout(QString(c), font);
        layout.beginLayout();
        layout.createLine();
        layout.endLayout();
        const QList<QGlyphRun> runs = layout.glyphRuns();
        if (c.isSurrogate() || runs.isEmpty() || runs.front().glyphIndexes().isEmpty()) continue;
        const QRawFont raw = runs.front().rawFont();
        auto known = fonts.find(raw.familyName());
        if (known == fonts.end())
            known = fonts.emplace(raw.familyName(), FirstCharacters(raw)).first;
        const auto first = known->second.find(runs.front().glyphIndexes().front());
        if (first != known->second.end() && first->second != c)
            mistaken[first->second] = c.unicode();
    }
    return mistaken;
}

void CorrectTexts(QPDF& pdf, const std::map<char16_t, char16_t>& mistaken)
{
    for (QPDFObjectHandle object : pdf.getAllObjects()) {
        if (!object.isDictionaryOfType("/Font") || !object.hasKey("/ToUnicode")) continue;
        QPDFObjectHandle map = object.getKey("/ToUnicode");
        const std::shared_ptr<Buffer> bytes = map.getStreamData();
        const std::string text(reinterpret_cast<const char*>(bytes->getBuffer()), bytes->getSize());
        map.replaceStreamData(CorrectedMap(text, mistaken), QPDFObjectHandle::newNull(),
                              QPDFObjectHandle::newNull());
    }
}

} // namespace designspec
