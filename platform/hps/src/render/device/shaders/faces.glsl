// What the two stages of the faces agree on.
#if defined(FLAT) || SPOTS > 0 || defined(MIRROR) || defined(BUMP_MAP) || defined(PROJECTED)
#define PLACE
#endif
#if defined(GOURAUD) && !defined(FLAT) && !defined(BUMP_MAP)
#define LIT_AT_CORNERS
#endif
#ifdef FLAT_COLOURS
#define TINT flat
#else
#define TINT
#endif
