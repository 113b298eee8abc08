// The attribute kits, each by the name that its data, kit, control and operations are built from. A new kit
// is a line here, beside its own header (included where its operations are declared) and source: storage,
// inheritance, streams and tests go by these lists.
#pragma once

// Inherited: what a segment sets holds below it.
#define HPS_INHERITED_KITS(KIT)                                                                              \
    KIT(MaterialMapping)                                                                                     \
    KIT(Visibility)                                                                                          \
    KIT(LineAttribute)                                                                                       \
    KIT(EdgeAttribute)                                                                                       \
    KIT(MarkerAttribute)                                                                                     \
    KIT(DrawingAttribute)                                                                                    \
    KIT(Culling)                                                                                             \
    KIT(Transparency)                                                                                        \
    KIT(VisualEffects)                                                                                       \
    KIT(TextAttribute)                                                                                       \
    KIT(Selectability)                                                                                       \
    KIT(LightingAttribute)                                                                                   \
    KIT(Camera)                                                                                              \
    KIT(ColorInterpolation)                                                                                  \
    KIT(ContourLine)                                                                                         \
    KIT(CurveAttribute)                                                                                      \
    KIT(CuttingSectionAttribute)                                                                             \
    KIT(CylinderAttribute)                                                                                   \
    KIT(HiddenLineAttribute)                                                                                 \
    KIT(NURBSSurfaceAttribute)                                                                               \
    KIT(Performance)                                                                                         \
    KIT(SphereAttribute)                                                                                     \
    KIT(TransformMask)

// Of the segment alone.
#define HPS_OWN_KITS(KIT)                                                                                    \
    KIT(Bounding)                                                                                            \
    KIT(AttributeLock)                                                                                       \
    KIT(Subwindow)

// Of a window alone.
#define HPS_WINDOW_KITS(KIT)                                                                                 \
    KIT(Debugging)                                                                                           \
    KIT(PostProcessEffects)                                                                                  \
    KIT(SelectionOptions)                                                                                    \
    KIT(UpdateOptions)

#define HPS_SEGMENT_KITS(KIT) HPS_INHERITED_KITS(KIT) HPS_OWN_KITS(KIT)
#define HPS_ALL_KITS(KIT) HPS_SEGMENT_KITS(KIT) HPS_WINDOW_KITS(KIT)
