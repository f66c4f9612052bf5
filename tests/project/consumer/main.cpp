#include "document/DashboardDocument.h"

int main()
{
    DashboardDocument document;
    const bool opened = document.open("no such package");
    return !opened && document.pageCount() == 0 ? 0 : 1;
}
