// What every function of the C interface goes through: no exception leaves it, and what it has to
// tell is kept for the caller's thread.
#pragma once

#include <new>
#include <string>
#include <type_traits>

#include "base/Problem.h"
#include "c/Handles.h"
#include "c/designspec.h"
#include "model/SpeedTable.h"
#include "platform/mfc/String.h"

namespace designspec {

// Ends a call with a status. Thrown and caught within this interface alone.
struct CallFailure {
    designspec_status status;
    CString cause; // empty: it stands among the problems already
};

[[noreturn]] void RefuseCall(const CString& cause);

// What this thread's call tells.
void ForgetProblems() noexcept;
void KeepProblems(const Problems& problems);
// Without memory for the text a shorter one stands for it.
void KeepError(designspec_status status, const CString& cause) noexcept;

// Runs a call: `work` returns a status, or nothing for DESIGNSPEC_OK.
template <class Work> designspec_status Call(Work work) noexcept
{
    ForgetProblems();
    try {
        if constexpr (std::is_void_v<std::invoke_result_t<Work>>) {
            work();
            return DESIGNSPEC_OK;
        } else {
            return work();
        }
    } catch (const CallFailure& failure) {
        if (!failure.cause.empty()) KeepError(failure.status, failure.cause);
        return failure.status;
    } catch (const std::bad_alloc&) {
        KeepError(DESIGNSPEC_NO_MEMORY, {});
        return DESIGNSPEC_NO_MEMORY;
    } catch (...) {
        KeepError(DESIGNSPEC_FAILED, {});
        return DESIGNSPEC_FAILED;
    }
}

// The object that a handle stands for; refuses any other.
template <class Object> std::shared_ptr<Object> ObjectOf(const void* handle)
{
    auto object = Handles::All().Find(handle, Object::kKind);
    if (!object) RefuseCall(Object::kNoHandle);
    return std::static_pointer_cast<Object>(std::move(object));
}
template <class Handle, class Object> void HandOut(Handle** handle, std::shared_ptr<Object> object)
{
    *handle = static_cast<Handle*>(Handles::All().Add(Object::kKind, std::move(object)));
}
template <class Object> designspec_status EndHandle(const void* handle) noexcept
{
    return Call([&] {
        if (!Handles::All().Take(handle, Object::kKind)) RefuseCall(Object::kNoHandle);
    });
}

// Refuses NULL.
template <class... Pointers> void NeedAll(const Pointers*... pointers)
{
    if (((pointers == nullptr) || ...)) RefuseCall(L"缺少参数(NULL)");
}
// A text of the caller's; refuses NULL and what is no UTF-8.
CString TextOf(const char* text);
QueryValue::QueryMode ModeOf(designspec_mode mode);
void HandOutText(char** to, const CString& text);
void HandOutText(char** to, const std::string& utf8);

} // namespace designspec
