#include <krcore/krcore.h>

int main()
{
    CString text;
    text.Format(OLESTR("%d layers"), 17);
    CKrVector3 const up(0, 0, 1);
    return text == OLESTR("17 layers") && up[2] == 1.0 ? 0 : 1;
}
