// A program's way to the functions of the system's libraries, changed while a test runs.
#pragma once

#include <cstring>
#include <stdexcept>

#include "base/windows/Windows.h"

namespace test_import {

template <class Value> Value* At(HMODULE module, size_t offset)
{
    return reinterpret_cast<Value*>(reinterpret_cast<char*>(module) + offset);
}

// Where the module has the address of the function that it imports by that name.
inline ULONGLONG& Place(HMODULE module, const char* name)
{
    const auto start = static_cast<size_t>(At<IMAGE_DOS_HEADER>(module, 0)->e_lfanew);
    const auto& imports = At<IMAGE_NT_HEADERS>(module, start)
                              ->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (const auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(module, imports.VirtualAddress);
         library->Name != 0; ++library) {
        const auto* names = At<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
        auto* functions = At<IMAGE_THUNK_DATA>(module, library->FirstThunk);
        for (; names->u1.AddressOfData != 0; ++names, ++functions)
            if (!IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal) &&
                std::strcmp(At<IMAGE_IMPORT_BY_NAME>(module, names->u1.AddressOfData)->Name,
                            name) == 0)
                return functions->u1.Function;
    }
    throw std::runtime_error(std::string("not imported: ") + name);
}

} // namespace test_import

// Puts `function` into the place of the one that the module imports by that name; gives that one.
template <class Function> Function* Import(HMODULE module, const char* name, Function* function)
{
    ULONGLONG& place = test_import::Place(module, name);
    const auto before = reinterpret_cast<Function*>(place);
    DWORD access = 0;
    VirtualProtect(&place, sizeof place, PAGE_READWRITE, &access);
    place = reinterpret_cast<ULONGLONG>(function);
    VirtualProtect(&place, sizeof place, access, &access);
    return before;
}
