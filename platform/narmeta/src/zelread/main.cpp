#include "reader_service.h"

int main(int count, char** arguments)
{
    return NarMetaInfra::serveRead(count, arguments);
}
