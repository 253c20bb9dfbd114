// The encodings that road files come in, beyond those that the parser knows by itself; linux/ and
// windows/ have a source each.
#pragma once

namespace roadcheck {

// Before a file is parsed; from any thread, as often as one likes.
void AddXmlEncodings();

} // namespace roadcheck
