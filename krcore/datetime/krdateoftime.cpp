#include <krcore/datetime/krdateoftime.h>

namespace kr::detail
{

COleDateTime DateOfTime(CTime const & time) noexcept
{
    return time.GetTime() == 0 ? COleDateTime() : COleDateTime(time);
}

} // namespace kr::detail
