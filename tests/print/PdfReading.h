// What people, viewers and printers find in a PDF file, by programs of its own.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/Text.h"
#include "tests/support/Process.h"
#include "tests/support/TemporaryFolder.h"

// The output of a PDF program of the system for that file; throws when it fails.
inline std::string AskPdf(std::string_view pdf, const std::string& program,
                          std::vector<std::string> options, const std::string& last = {})
{
    const TemporaryFolder folder;
    folder.Write("report.pdf", pdf);
    options.insert(options.begin(), "/usr/bin/" + program);
    options.push_back(folder.Native("report.pdf").string());
    if (!last.empty()) options.push_back(last);
    const ProcessResult result = RunProcess(options, folder.Native());
    if (result.status != 0) throw std::runtime_error(program + ": " + result.err);
    return result.out;
}

inline bool CanReadPdf()
{
    return std::filesystem::exists("/usr/bin/pdftotext");
}

// The text of each page, line by line as it stands there.
inline std::vector<std::wstring> PdfPages(std::string_view pdf)
{
    std::vector<std::wstring> pages(1);
    for (const wchar_t c : ToWide(AskPdf(pdf, "pdftotext", {"-layout", "-enc", "UTF-8"}, "-"))) {
        if (c == L'\f')
            pages.emplace_back();
        else
            pages.back() += c;
    }
    pages.pop_back(); // a form feed ends each page
    return pages;
}

inline std::wstring WithoutSpace(std::wstring_view text)
{
    std::wstring dense;
    for (const wchar_t c : text)
        if (!Trim(std::wstring_view(&c, 1)).empty()) dense += c;
    return dense;
}
