#include "host/Appearance.h"

#include <QApplication>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QPalette>
#include <QTranslator>

#include "host/DarkStyle.h"

namespace {

// Behind the system's font, these are asked for glyphs that it lacks; without them a Japanese
// form of a character may be found first.
const QStringList kChineseFamilies = {
    QStringLiteral("Noto Sans CJK SC"),    QStringLiteral("Source Han Sans SC"),
    QStringLiteral("WenQuanYi Micro Hei"), QStringLiteral("WenQuanYi Zen Hei"),
    QStringLiteral("Microsoft YaHei"),     QStringLiteral("PingFang SC"),
};

QPalette DarkPalette()
{
    const QColor window(45, 48, 52);
    const QColor text(228, 230, 232);
    const QColor disabled(130, 134, 140);
    QPalette palette(window, window); // with the shades that raised edges need
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText,
          QPalette::BrightText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, disabled);
    }
    palette.setColor(QPalette::Base, QColor(30, 32, 35));
    palette.setColor(QPalette::AlternateBase, QColor(38, 41, 44));
    palette.setColor(QPalette::ToolTipBase, QColor(60, 64, 70));
    palette.setColor(QPalette::PlaceholderText, disabled);
    palette.setColor(QPalette::Mid, QColor(92, 97, 104));
    palette.setColor(QPalette::Highlight, QColor(42, 110, 170));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(100, 170, 230));
    return palette;
}

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

void UseDarkColours()
{
    // Other styles may draw in colours of their own. The application takes the style over.
    QApplication::setStyle(new DarkStyle);
    QApplication::setPalette(DarkPalette());
}
