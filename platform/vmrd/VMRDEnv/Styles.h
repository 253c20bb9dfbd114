// A library of styles, as the style manager sees it: its items, the default one, its files.
#pragma once

#include <functional>

#include "platform/mfc/Export.h"
#include "platform/mfc/String.h"
#include "platform/vmrd/VMRDEnv/Style.h"
#include "platform/xtp/PropExchange.h"

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
    // Writes the style of that index, which an import added or changed, to the library's own
    // files. False when that failed, or the library has no such files.
    virtual bool SaveItem(int index);

    // Path from the root of a file to the section that holds the styles of this library.
    CString StylesPath() const;
    // Takes the style of that identity out of a file; what else the file holds stays. False when
    // the file could not be read or written.
    bool RemoveFromFile(const wchar_t* path, const GUID& id) const;

    // Tells the views that the list has changed; they draw it anew. Reads no file.
    void Refurbish();
    using RefurbishListener = std::function<void(CStyles&)>;
    // One listener for all libraries: the style manager. Returns the one before.
    static RefurbishListener SetRefurbishListener(RefurbishListener listener);

protected:
    // Opens the file at `path`, or begins a new document when there is none, and finds or makes
    // the way down to this library's styles: StyleLibrary / Group (one for each level of
    // `groupName`, split at "/" and "\") / Styles. False when a file is there and cannot be read.
    bool CreateStylesNode(const wchar_t* path, const wchar_t* groupName,
                          CXTPPropExchangeXMLNode& root, CXTPPropExchange& styles) const;
    // True when the style's section bears that identity, in whatever form it is written.
    static bool HasID(const CXTPPropExchange& style, const GUID& id);
    // Path of a group's section: Group[@Name="…"] for each level, joined by "/".
    static CString GroupPath(const wchar_t* groupName);

private:
    int m_nDefaultItem = -1;
};

// The root element of every file of styles.
inline constexpr wchar_t kStyleLibraryRoot[] = L"StyleLibrary";
