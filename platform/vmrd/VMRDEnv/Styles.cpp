#include "platform/vmrd/VMRDEnv/Styles.h"

#include <utility>

#include "platform/vmrd/VMRDPub/VMRDPub.h"

using namespace designspec;

IMPLEMENT_DYNAMIC(CStyles, CObject)

namespace {

Signal<CStyles&>& Refurbished()
{
    static Signal<CStyles&> refurbished;
    return refurbished;
}

} // namespace

CString designspec::CurrentStylesFolder()
{
    return StylesFolderOf(VMRDPub::GetCurPrjPath());
}

int CStyles::GetDefaultItem() const
{
    return m_nDefaultItem;
}

CStyle* CStyles::DefaultItem() const
{
    return Item(GetDefaultItem());
}

bool CStyles::SetDefaultItem(const GUID& id)
{
    for (int i = 0; i < Count(); ++i) {
        if (Item(i)->ID() == id) {
            SetDefaultItem(i);
            return true;
        }
    }
    return false;
}

void CStyles::SetDefaultItem(int index)
{
    m_nDefaultItem = index;
}

void CStyles::Refurbish()
{
    Refurbished().Tell(*this);
}

Connection CStyles::ConnectRefurbish(Signal<CStyles&>::Function listener)
{
    return Refurbished().Connect(std::move(listener));
}
