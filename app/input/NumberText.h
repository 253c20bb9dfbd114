// Numbers as the editor shows them and as users enter them.
#pragma once

#include "platform/mfc/String.h"

// What an edit field holds, ready to be read as a number: without blanks around it, and with the
// signs of a Chinese input method turned into ASCII.
CString EnteredText(const CString& text);

// The value with that many decimals; `trim` leaves out zeros at the end, and the point behind
// which nothing is left.
CString DecimalText(double value, int decimals, bool trim);

// A number of 0 or more with at most one digit behind its point; a point at the end will do.
// `value` is the text's leading number in any case.
bool ReadOneDecimal(const CString& text, double& value);

// A whole number written the plain way: no leading zeros, no plus sign, nothing behind it.
// `value` is the text's leading whole number in any case.
bool ReadWholeNumber(const CString& text, int& value);
