// A library of styles, as the style manager sees it: its items, the default one, its files.
#pragma once

#include "base/Signal.h"
#include "platform/vmrd/VMRDEnv/Style.h"
#include "platform/vmrd/VMRDEnv/StyleFolder.h"

class CStyles;

namespace designspec {

// What came of taking styles from a file into a library and its own files.
struct StyleImport {
    bool read = false;   // the file could be read
    int added = 0;       // styles that the library did not have
    int overwritten = 0; // styles that it had, and that are now as in the file
    int failed = 0;      // among both, those that could not be saved
    CArray<GUID> ids;    // of both
};

// The folder of styles of the current project.
AFX_EXT_API CString CurrentStylesFolder();

} // namespace designspec

class AFX_EXT_CLASS CStyles : public CObject {
    DECLARE_DYNAMIC(CStyles)

public:
    CStyles() = default;
    CStyles(const CStyles&) = delete;
    CStyles& operator=(const CStyles&) = delete;

    // Name of the library, and of its group in files.
    virtual CString Name() const = 0;
    virtual int Count() const = 0;
    // Null when no style has that identity or index.
    virtual CStyle* Item(const GUID& id) const = 0;
    virtual CStyle* Item(int index) const = 0;

    // Writes the named styles, or all of them when no name is given, into a file; styles of other
    // identities that the file holds stay in it. False when the file could not be written.
    virtual bool Export(const wchar_t* path, const CStringArray& names, const wchar_t* unused) = 0;
    // Reads the named styles of a file, or all; one of an identity that the library has is only
    // taken when `overwrite` is set. False when the file could not be read.
    virtual bool Import(const wchar_t* path, const CStringArray& names, const wchar_t* unused,
                        bool overwrite) = 0;
    // Copies the library's files below `folder`. False when one could not be copied.
    virtual bool SaveAsTemplate(const wchar_t* folder) = 0;
    // Appends names and identities of the styles of a file. False when it could not be read.
    virtual bool StyleNames(const wchar_t* path, CStringArray& names, CArray<GUID>& ids) const = 0;
    // Reads the library anew from its files.
    virtual void Update() = 0;

    // Index of the default style; -1 at first. The style may be gone since.
    virtual int GetDefaultItem() const;
    // The default style; null when there is none.
    virtual CStyle* DefaultItem() const;
    // Makes the style of that identity the default one. False when there is none.
    virtual bool SetDefaultItem(const GUID& id);
    virtual void SetDefaultItem(int index);

    // Imports, and saves what is new or overwritten in the library's own files. What those held
    // that is overwritten goes to the deleted styles.
    virtual designspec::StyleImport ImportAndSave(const CString& path, const CStringArray& names,
                                                  bool overwrite) = 0;
    // The folder of the library's own files, that of the current project.
    virtual designspec::StyleFolder& Files() = 0;

    // Tells the views that the list has changed; they draw it anew. Reads no file.
    void Refurbish();
    // Told of every library that is refurbished.
    [[nodiscard]] static designspec::Connection
    ConnectRefurbish(designspec::Signal<CStyles&>::Function listener);

private:
    int m_nDefaultItem = -1;
};
