// The scene database as a whole, for those who do not pick single headers.
#pragma once
#include <hps/Database.h>
#include <hps/KeyPath.h>
#include <hps/Stream.h>
