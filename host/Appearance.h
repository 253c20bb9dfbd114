// How the program looks wherever it runs: Chinese glyphs, Qt's own texts in Chinese.
#pragma once

// For the running application, before its first window. False when no font of the system has
// Chinese glyphs.
bool SetAppearance();

// Light text on dark windows, whatever the desktop has set.
void UseDarkColours();
