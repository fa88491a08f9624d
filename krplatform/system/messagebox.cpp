#include <krplatform/system/default_message_box.h>
#include <krplatform/system/messagebox.h>

#include <atomic>

namespace
{

std::atomic<AfxMessageBoxHandler> s_handler = kr::detail::ShowMessageBox;

} // namespace

AfxMessageBoxHandler AfxSetMessageBoxHandler(AfxMessageBoxHandler handler)
{
    return s_handler.exchange(handler ? handler : kr::detail::ShowMessageBox);
}

int AfxMessageBox(WCHAR const * text, UINT style, UINT helpContext)
{
    return s_handler.load()(text ? text : OLESTR(""), style, helpContext);
}
