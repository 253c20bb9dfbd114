// The command without spreadsheets.
#include "cli/Project.h"

namespace {

[[noreturn]] void RefuseSheets()
{
    Refuse(L"此程序没有电子表格功能,请用 Linux 上的 designspec sheet");
}

} // namespace

Status RunSheetRead(const Arguments&, Teller&)
{
    RefuseSheets();
}

Status RunSheetWrite(const Arguments&, Teller&)
{
    RefuseSheets();
}
