#include "Presenter.h"
#include <utility>

namespace HPS
{
namespace
{

PresenterMaker& registeredMaker()
{
    static PresenterMaker maker = nullptr;
    return maker;
}

} // namespace

PresenterMaker setPresenterMaker(PresenterMaker maker)
{
    return std::exchange(registeredMaker(), maker);
}

std::unique_ptr<Presenter> makePresenter(WindowHandle window)
{
    return window != 0 && registeredMaker() != nullptr ? registeredMaker()(window) : nullptr;
}

} // namespace HPS
