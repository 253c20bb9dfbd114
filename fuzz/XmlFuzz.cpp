// The XML load with any bytes: it must end, and a document that was taken must be one that can be
// walked, saved and taken again.
#include "fuzz/Fuzz.h"
#include "platform/xtp/PropExchangeXMLNode.h"

namespace {

constexpr wchar_t kRoot[] = L"StyleLibrary";

// Reads what the library reads: the sections of the names it knows, their values in both modes.
void Walk(const CXTPPropExchange& section, int depth)
{
    for (const bool compact : {true, false}) {
        CXTPPropExchange values = section;
        values.EnableCompactMode(compact);
        for (const wchar_t* key : {L"Name", L"ID", L"speed", L"value"}) {
            CString text;
            int whole = 0;
            double real = 0;
            values.ExchangeText(key, text);
            values.ExchangeInt(key, whole);
            values.ExchangeDouble(key, real);
            values.ExchangeBool(key, whole);
        }
    }
    if (depth == 0) return;
    for (const wchar_t* name : {L"Group", L"Styles", L"Style", L"Item"}) {
        CXTPPropExchangeEnumerator all = section.GetEnumerator(name);
        while (all.HasNext())
            Walk(all.GetNext(), depth - 1);
    }
}

} // namespace

FUZZ(bytes)
{
    CXTPPropExchangeXMLNode document(false, kRoot);
    if (!document.LoadFromBytes(bytes, L"fuzz")) {
        Require(!document.IsSectionExists());
        return 0;
    }
    CXTPPropExchangeXMLNode loaded(true, kRoot);
    Require(loaded.LoadFromBytes(bytes, L"fuzz"));
    Walk(loaded, 4);
    loaded.FindSection(L"Group[@Name=\"a\"]/Styles/Style").Line();
    loaded.TakeProblems();

    document.GetSection(L"Group[@Name=\"a/b\"]/Styles");
    const std::string saved = document.SaveToBytes();
    CXTPPropExchangeXMLNode again(true, kRoot);
    Require(again.LoadFromBytes(saved, L"saved"));
    Require(again.GetSection(L"Group[@Name=\"a/b\"]/Styles").IsSectionExists());
    return 0;
}
