// Where the host finds what is installed with it: by its own place, so that all can be moved
// together.
#pragma once

#include <QString>

// The modules, their icons and the groups of the style manager.
QString ModuleFolder();
// The user's guide with its pictures.
QString GuideFolder();
