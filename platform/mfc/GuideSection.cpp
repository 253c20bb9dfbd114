#include "platform/mfc/GuideSection.h"

#include <QVariant>
#include <QWidget>

#include "platform/mfc/QtText.h"

namespace designspec {

namespace {
constexpr char kSection[] = "guideSection";
}

void SetGuideSection(QWidget* window, const wchar_t* heading)
{
    window->setProperty(kSection, ToQString(heading));
}

QString GuideSectionOf(const QWidget* widget)
{
    for (; widget; widget = widget->parentWidget())
        if (QString section = widget->property(kSection).toString(); !section.isEmpty())
            return section;
    return {};
}

} // namespace designspec
