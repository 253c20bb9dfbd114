// Puts specifications of the library in the place of what they were, by its rules: what a page of
// the editor would refuse is refused here too, and what others did meanwhile is settled.
#pragma once

#include <vector>

#include "model/DesignSpecification.h"

class QWidget;

namespace designspec {

// False, when it was not saved, with a message to the user; then the library has it as it was.
// `opened` is the specification as it was when somebody began to work on it, `made` what it is to
// be, under its own name and identity.
bool StoreChanged(const CDesignSpecification& opened, const CDesignSpecification& made,
                  QWidget* owner);

struct SpecificationChange {
    CDesignSpecification opened;
    CDesignSpecification made;
};
// All of them, or none: where one has become another one meanwhile, or its file resists, the others
// are what they were. False with a message then.
bool StoreAllChanged(const std::vector<SpecificationChange>& changes, QWidget* owner);
// The first one that is not in the files as it was opened, for people; empty when all are.
CString WhatHasChanged(const std::vector<SpecificationChange>& changes);
// Puts one into the library that is not there: a version of one that was deleted, or a new one.
// False with a message, when it was not saved.
bool PutBack(const CDesignSpecification& specification, QWidget* owner);

// The same for a new one, of which the editor is to refuse nothing either.
bool StoreNew(const CDesignSpecification& made, QWidget* owner);

// What a page of the editor would refuse of it that it would not have refused before, a line each;
// empty when nothing is.
CString RefusedBy(const CDesignSpecification& before, const CDesignSpecification& made);

} // namespace designspec
