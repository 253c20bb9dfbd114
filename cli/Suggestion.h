// What a word that the command does not know was probably meant to be.
#pragma once

#include <string>
#include <vector>

// The known word that is nearest to it: a few letters off, or called so by other programs. Empty
// when none is near.
std::string SuggestionFor(const std::string& word, const std::vector<std::string>& known);
