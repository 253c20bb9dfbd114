// The exchange with a whole document.
#pragma once

#include "platform/xtp/PropExchange.h"

class AFX_EXT_CLASS CXTPPropExchangeXMLNode : public CXTPPropExchange {
public:
    CXTPPropExchangeXMLNode() = default;
    // An empty document with that root element.
    CXTPPropExchangeXMLNode(bool loading, const wchar_t* rootName);

    // Reads a file in place of the document and its problems. False, with a problem that names
    // file, line and cause, when it cannot be read, is not well-formed, is no text in the encoding
    // it declares, holds a document type declaration, nests elements deeper than 64, is larger than
    // the machine can hold or so full of markup that its tree would take out of all proportion, or
    // has another root. Then there is no document: no section exists.
    bool LoadFromFile(const wchar_t* path);
    // The same, but an empty document stays when there is no file.
    bool OpenFile(const wchar_t* path);
    // The same as LoadFromFile for a file's bytes; `name` is how problems name them.
    bool LoadFromBytes(std::string_view bytes, const CString& name);

    // Bytes of the text that the document was read from.
    size_t SourceSize() const;

    // Writes the document: UTF-8, indented, whole or not at all (see WriteWholeFile). False, with
    // a problem, when that failed.
    bool SaveToFile(const wchar_t* path) const;
    std::string SaveToBytes() const;

private:
    AFX_EXT_PRIVATE void Drop();

    CString m_rootName;
};
