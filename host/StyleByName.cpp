#include "host/StyleByName.h"

#include "base/NoCase.h"
#include "platform/mfc/QtText.h"
#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

CStyle* FindStyle(const CStyles& styles, const QString& spec)
{
    if (spec.isEmpty()) {
        CStyle* const standard = styles.DefaultItem();
        return standard ? standard : styles.Item(0);
    }
    GUID id;
    if (VMRDPub::ParseGUID(FromQString(spec), id)) return styles.Item(id);
    for (int i = 0; i < styles.Count(); ++i)
        if (EqualNoCase(styles.Item(i)->Name(), FromQString(spec))) return styles.Item(i);
    return nullptr;
}
