#include <windows.h>

// Succeeds when the manifest is in force.
int main()
{
    return GetACP() == CP_UTF8 ? 0 : 1;
}
