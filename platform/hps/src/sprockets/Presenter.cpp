#include "Presenter.h"

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

void setPresenterMaker(PresenterMaker maker)
{
    registeredMaker() = maker;
}

std::unique_ptr<Presenter> makePresenter(WindowHandle window)
{
    return window != 0 && registeredMaker() != nullptr ? registeredMaker()(window) : nullptr;
}

} // namespace HPS
