// The host's own drawings, in the colour of the palette's texts.
#pragma once

#include <QIcon>

// The drawing :/host/icons/NAME.svg; an empty icon when there is none.
QIcon HostIcon(const char* name);
