#pragma once

/// The scene library as the plug-in sees it: keys and segments, kits and controls, model, view and canvas,
/// stream (HPS). No other header of the plug-in includes one of that library; this is the place to put
/// another one in.
#include <hps/AxisTriadControl.h>
#include <hps/CuttingSectionOperator.h>
#include <hps/Factory.h>
#include <hps/HighlightOptionsKit.h>
#include <hps/MouseWheelOperator.h>
#include <hps/NavigationCubeControl.h>
#include <hps/OrbitOperator.h>
#include <hps/PanOperator.h>
#include <hps/SelectOperator.h>
#include <hps/SprocketPath.h>
#include <hps/TouchOperator.h>
#include <hps/WindowKey.h>
#include <hps/World.h>
#include <hps/ZoomOperator.h>
#include <hps/hps.h>
