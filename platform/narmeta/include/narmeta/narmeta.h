#pragma once

// The whole model library.
#include <narmeta/infra/ZELProductStructure.h>
#include <narmeta/io/ZelIO.h>
#include <narmeta/visu/MaterialContainer.h>
