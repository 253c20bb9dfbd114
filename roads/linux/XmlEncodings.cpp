#include "roads/XmlEncodings.h"

namespace roadcheck {

// The parser asks the system's iconv for all of them.
void AddXmlEncodings() {}

} // namespace roadcheck
