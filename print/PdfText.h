// The text of a PDF file as it is found and copied there. The painter of such files notes for each
// shape the first character that has it: for 长 a radical, for a blank a tab.
#pragma once

#include <map>

#include <QFont>
#include <qpdf/QPDF.hh>

namespace designspec {

// For the characters of a text: that which the painter notes in its place, where it is another one.
std::map<char16_t, char16_t> MistakenCharacters(const QString& text, const QFont& font);

// Puts the right ones in their place, in all fonts of the file.
void CorrectTexts(QPDF& pdf, const std::map<char16_t, char16_t>& mistaken);

} // namespace designspec
