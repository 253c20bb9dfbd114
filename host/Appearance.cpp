#include "host/Appearance.h"

#include <QApplication>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QTranslator>

namespace {

// Behind the system's font, these are asked for glyphs that it lacks; without them a Japanese
// form of a character may be found first.
const QStringList kChineseFamilies = {
    QStringLiteral("Noto Sans CJK SC"),    QStringLiteral("Source Han Sans SC"),
    QStringLiteral("WenQuanYi Micro Hei"), QStringLiteral("WenQuanYi Zen Hei"),
    QStringLiteral("Microsoft YaHei"),     QStringLiteral("PingFang SC"),
};

} // namespace

bool SetAppearance()
{
    auto* translator = new QTranslator(qApp);
    if (translator->load(QStringLiteral("qtbase_zh_CN"),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(translator);

    QFont font = QApplication::font();
    font.setFamilies(QStringList(font.family()) + kChineseFamilies);
    QApplication::setFont(font);
    return !QFontDatabase::families(QFontDatabase::SimplifiedChinese).isEmpty();
}
