#include "ZELOpConfigurator.h"

namespace ZelVizBase
{

ZELOpConfigurator::ZELOpConfigurator()
    : Configs{
          {OperatorMouseWheel, {ButtonWheel, KeyNone, PriorityLow}},
          {OperatorOrbit, {ButtonLeft, KeyNone, PriorityLow}},
          {OperatorZoom, {ButtonMiddle, KeyNone, PriorityDefault}},
          {OperatorPan, {ButtonRight, KeyNone, PriorityDefault}},
          {OperatorHighlight, {ButtonLeft, KeyNone, PriorityHigh}},
      }
{
}

} // namespace ZelVizBase
