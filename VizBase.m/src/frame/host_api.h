#pragma once

/// The host framework as the plug-in sees it: sessions, documents, views and trees (MoraCore), ids, settings
/// and rendering options (ZELVizCore). No other header of the plug-in includes one of that library; this is
/// the place to put another one in.
#include <mora/ACamera.h>
#include <mora/APluginFactory.h>
#include <mora/ARenderer.h>
#include <mora/ARendererTree.h>
#include <mora/AViewTree.h>
#include <mora/EntityId.h>
#include <mora/ICameraProvider.h>
#include <mora/IDocumentEvo.h>
#include <mora/IMenuAction.h>
#include <mora/IView3DEvo.h>
#include <mora/IViewInteraction.h>
#include <mora/RenderId.h>
#include <mora/RenderingOptions.h>
#include <mora/SessionMgr.h>
#include <mora/Settings.h>
#include <mora/TreeBuilder.h>
#include <mora/View3DFactory.h>
#include <mora/vector_math.h>
