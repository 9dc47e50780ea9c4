// The same with the smart pointers that Microsoft's compiler makes of a type library.
#import "VantroProfileUtils.tlb" no_namespace

#include <cstdio>

int main() {
    CoInitialize(nullptr);
    try {
        IProfileTransPtr moveDown(__uuidof(CPDMDTrans));
        std::printf("%ls\n", static_cast<const wchar_t*>(moveDown->CreateCommand(vtMissing)));

        IProfileTransPtr deactivation(__uuidof(CPXTrans));
        deactivation->CreateCommand(vtMissing);
    } catch (const _com_error& error) {
        std::printf("%ld %ls\n", static_cast<long>(error.Error() & 0xFFFF),
                    static_cast<const wchar_t*>(error.Source()));
    }
    CoUninitialize();
    return 0;
}
