#include "platform/arx/Documents.h"

Acad::ErrorStatus AcApDocManager::lockDocument(AcApDocument* document)
{
    if (!document) return Acad::eInvalidInput;
    ++document->m_locks;
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::unlockDocument(AcApDocument* document)
{
    if (!document) return Acad::eInvalidInput;
    if (document->m_locks == 0) return Acad::eNotApplicable;
    --document->m_locks;
    return Acad::eOk;
}

AcApDocManager* acDocManagerPtr()
{
    static AcApDocManager manager;
    return &manager;
}

AcAxDocLock::AcAxDocLock() : m_document(acDocManager->curDocument())
{
    acDocManager->lockDocument(m_document);
}

AcAxDocLock::~AcAxDocLock()
{
    acDocManager->unlockDocument(m_document);
}
