// Hands specifications over as workbooks: asks how several are to be written, and where to.
#pragma once

#include "model/DesignSpecification.h"
#include "platform/mfc/Dialog.h"

// Of several specifications: a workbook for each, or one in which they stand side by side.
class CWriteSheetsDialog : public CDialog {
public:
    static constexpr int kPlace = 106;
    static constexpr int kEach = 241; // radio buttons
    static constexpr int kTogether = 242;

    CWriteSheetsDialog(std::size_t count, QWidget* parent);

    bool IsTogether() const { return IsDlgButtonChecked(kTogether); }
};

namespace designspec {

// Asks and writes the selected specifications of the library. What is to be told of it; empty when
// nothing was written, of which a message has told.
CString WriteSheets(const CArray<GUID>& selected, QWidget* owner);

} // namespace designspec
