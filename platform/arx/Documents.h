// The host's documents, as far as a module locks the current one while it works with it.
#pragma once

#include "base/Export.h"

namespace Acad {
enum ErrorStatus { eOk = 0, eInvalidInput = 3, eNotApplicable = 8 };
}

class AFX_EXT_CLASS AcApDocument {
public:
    int LockCount() const { return m_locks; }

private:
    friend class AcApDocManager;
    int m_locks = 0;
};

class AFX_EXT_CLASS AcApDocManager {
public:
    // This host has one document, the project that is open; it is always there.
    AcApDocument* curDocument() { return &m_document; }

    // Locks are counted. eInvalidInput without a document; eNotApplicable when one that is not
    // locked is unlocked.
    Acad::ErrorStatus lockDocument(AcApDocument* document);
    Acad::ErrorStatus unlockDocument(AcApDocument* document);

private:
    AcApDocument m_document;
};

AFX_EXT_API AcApDocManager* acDocManagerPtr();
#define acDocManager acDocManagerPtr()

// Locks the current document as long as it lives.
class AFX_EXT_CLASS AcAxDocLock {
public:
    AcAxDocLock();
    ~AcAxDocLock();
    AcAxDocLock(const AcAxDocLock&) = delete;
    AcAxDocLock& operator=(const AcAxDocLock&) = delete;

private:
    AcApDocument* m_document;
};
