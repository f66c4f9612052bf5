#include <unzip.h>
#include <zip.h> // another library has a header of this name, without zipClose

int main()
{
    const bool refused = unzOpen64("no such archive") == nullptr;
    return refused && zipClose(nullptr, nullptr) == ZIP_PARAMERROR ? 0 : 1;
}
