#include "c/Calls.h"

#include <cstdlib>
#include <cstring>

#include "base/Text.h"
#include "c/Told.h"

namespace designspec {

namespace {

const char* ShortText(designspec_status status)
{
    return status == DESIGNSPEC_NO_MEMORY ? "内存不足" : "内部错误";
}

} // namespace

void RefuseCall(const CString& cause)
{
    throw CallFailure{DESIGNSPEC_WRONG_CALL, cause};
}

void ForgetProblems() noexcept
{
    Told& told = ToldHere();
    told.problems.clear();
    told.error.clear();
    told.short_ = nullptr;
}

void KeepProblems(const Problems& problems)
{
    Told& told = ToldHere();
    for (const Problem& one : problems) {
        const bool isError = one.severity == Severity::Error;
        if (isError && told.error.empty()) told.error = ToUtf8(one.Text());
        told.problems.push_back({isError, ToUtf8(one.file), ToUtf8(one.text), one.line});
    }
}

void KeepError(designspec_status status, const CString& cause) noexcept
{
    try {
        if (!cause.empty()) return KeepProblems({{Severity::Error, {}, 0, cause}});
    } catch (const std::bad_alloc&) {
        status = DESIGNSPEC_NO_MEMORY;
    }
    ToldHere().short_ = ShortText(status);
}

CString TextOf(const char* text)
{
    NeedAll(text);
    std::size_t offset = 0;
    if (!IsUtf8(text, offset)) RefuseCall(L"文字不是 UTF-8");
    return ToWide(text);
}

QueryValue::QueryMode ModeOf(designspec_mode mode)
{
    if (mode < DESIGNSPEC_NEAREST || mode > DESIGNSPEC_EXACT) RefuseCall(L"没有这种取值方式");
    return static_cast<QueryValue::QueryMode>(mode);
}

void HandOutText(char** to, const CString& text)
{
    HandOutText(to, ToUtf8(text));
}

void HandOutText(char** to, const std::string& utf8)
{
    auto* const copy = static_cast<char*>(std::malloc(utf8.size() + 1));
    if (!copy) throw std::bad_alloc();
    std::memcpy(copy, utf8.c_str(), utf8.size() + 1);
    *to = copy;
}

} // namespace designspec

using namespace designspec;

const char* designspec_version(void)
{
    return DESIGNSPEC_VERSION;
}

const char* designspec_last_error(void)
{
    const Told& told = ToldHere();
    return told.short_ ? told.short_ : told.error.c_str();
}

size_t designspec_last_problem_count(void)
{
    const Told& told = ToldHere();
    return told.problems.size() + (told.short_ ? 1 : 0);
}

int designspec_last_problem(size_t index, designspec_problem* problem)
{
    if (!problem || index >= designspec_last_problem_count()) return 0;
    const Told& told = ToldHere();
    if (index == told.problems.size()) {
        *problem = {1, "", 0, told.short_};
    } else {
        const ToldProblem& one = told.problems[index];
        *problem = {one.isError, one.file.c_str(), one.line, one.text.c_str()};
    }
    return 1;
}

void designspec_text_free(char* text)
{
    std::free(text);
}
