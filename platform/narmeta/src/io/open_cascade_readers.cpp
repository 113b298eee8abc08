#include "open_cascade_readers.h"

namespace NarMetaInfra
{

void RegisterOpenCascadeReaders(ReaderRegistry&) {}

} // namespace NarMetaInfra
