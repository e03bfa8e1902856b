// The XML document class of the simulated machine.
#pragma once

#include "machine/services/com_objects.h"

namespace machine {

/// DOMDocument60, for the classes that CoCreateInstance can make.
ComClass XmlDocumentClass();

} // namespace machine
