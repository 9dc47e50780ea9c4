// What install.cmd needs of the system's certutil, for Wine, whose own one prints no checksums:
// certutil -hashfile FILE SHA256. The sum is in the second line; with VANTRO_OLD_CERTUTIL its bytes have blanks between
// them, as older systems print them.
#define NOMINMAX
#include <windows.h>

#include <wincrypt.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

int main(int argc, char** argv) {
    if (argc != 4 || std::strcmp(argv[1], "-hashfile") != 0 || std::strcmp(argv[3], "SHA256") != 0) return 1;
    std::FILE* const file = std::fopen(argv[2], "rb");
    HCRYPTPROV provider = 0;
    HCRYPTHASH hash = 0;
    if (file == nullptr || !CryptAcquireContextW(&provider, nullptr, nullptr, PROV_RSA_AES, CRYPT_VERIFYCONTEXT) ||
        !CryptCreateHash(provider, CALG_SHA_256, 0, 0, &hash)) {
        return 1;
    }
    static BYTE block[65536];
    while (const std::size_t count = std::fread(block, 1, sizeof block, file)) {
        CryptHashData(hash, block, static_cast<DWORD>(count), 0);
    }
    std::fclose(file);
    BYTE sum[32] = {};
    DWORD length = sizeof sum;
    if (!CryptGetHashParam(hash, HP_HASHVAL, sum, &length, 0)) return 1;
    const char* const separator = std::getenv("VANTRO_OLD_CERTUTIL") != nullptr ? " " : "";
    std::printf("SHA256 hash of %s:\n", argv[2]);
    for (DWORD index = 0; index < length; ++index) std::printf("%s%02x", index == 0 ? "" : separator, sum[index]);
    std::printf("\nCertUtil: -hashfile command completed successfully.\n");
    return 0;
}
