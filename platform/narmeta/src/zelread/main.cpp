#include "reader_service.h"

#include <mimalloc.h>

int main(int count, char** arguments)
{
    // What a thread that has ended leaves behind goes back to the system at once.
    mi_option_enable(mi_option_abandoned_page_decommit);
    return NarMetaInfra::serveRead(count, arguments);
}
