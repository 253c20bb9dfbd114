#include "platform/arx/Documents.h"

#include <gtest/gtest.h>

namespace {

TEST(Documents, LocksAreCounted)
{
    AcApDocument* const document = acDocManager->curDocument();
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(document->LockCount(), 0);
    EXPECT_EQ(acDocManager->lockDocument(document), Acad::eOk);
    {
        const AcAxDocLock lock;
        EXPECT_EQ(document->LockCount(), 2);
    }
    EXPECT_EQ(document->LockCount(), 1);
    EXPECT_EQ(acDocManager->unlockDocument(document), Acad::eOk);
    EXPECT_EQ(document->LockCount(), 0);
}

TEST(Documents, WhatIsNotLockedCannotBeUnlocked)
{
    EXPECT_EQ(acDocManager->unlockDocument(acDocManager->curDocument()), Acad::eNotApplicable);
    EXPECT_EQ(acDocManager->lockDocument(nullptr), Acad::eInvalidInput);
    EXPECT_EQ(acDocManager->unlockDocument(nullptr), Acad::eInvalidInput);
}

} // namespace
