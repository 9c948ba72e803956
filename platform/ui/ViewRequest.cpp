#include "ViewRequest.h"

namespace KxPlat {

namespace {

ViewHandler& Handler()
{
    static ViewHandler handler;
    return handler;
}

}   // namespace

void SetViewHandler(ViewHandler handler)
{
    Handler() = std::move(handler);
}

void RequestView(const ViewRequest& request)
{
    if (Handler())
        Handler()(request);
}

}   // namespace KxPlat
