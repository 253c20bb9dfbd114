// The language of the help. Everything else that the command says is Chinese.
#pragma once

enum class Language { Chinese, English };

// English where the locale of messages is neither Chinese nor left open: LC_ALL, LC_MESSAGES and
// LANG are asked in that order, the first that is set counts, then the system; C and POSIX leave it
// open.
Language HelpLanguage();
