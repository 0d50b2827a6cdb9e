#include "platform/system/sealed_file.hpp"

#include <gmock/gmock.h>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

namespace platform {
namespace {

std::span<const std::byte> bytesOf(std::string_view text) {
    return std::as_bytes(std::span(text));
}

std::string textOf(SealedFile& file) {
    std::error_code error;
    const auto bytes = file.map(error);
    EXPECT_FALSE(error) << error.message();
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

SealedFile sealedFile(std::string_view content) {
    std::error_code error;
    SealedFile file = SealedFile::create("test", error);
    EXPECT_FALSE(error);
    EXPECT_FALSE(file.append(bytesOf(content)));
    EXPECT_FALSE(file.seal());
    return file;
}

TEST(SealedFile, HoldsWhatWasWrittenSinceItWasCleared) {
    std::error_code error;
    SealedFile file = SealedFile::create("test", error);
    ASSERT_FALSE(error);
    EXPECT_TRUE(file.map(error).empty());
    EXPECT_EQ(error, std::errc::operation_not_permitted) << "it can still change";
    ASSERT_FALSE(file.append(bytesOf("a first, longer try")));
    ASSERT_FALSE(file.clear());
    ASSERT_FALSE(file.append(bytesOf("old ")));
    ASSERT_FALSE(file.append(bytesOf("and new")));
    ASSERT_FALSE(file.seal());
    EXPECT_EQ(file.size(), 11U);
    EXPECT_EQ(textOf(file), "old and new");
    SealedFile moved = std::move(file);
    EXPECT_EQ(textOf(moved), "old and new");
    EXPECT_EQ(fcntl(moved.fd(), F_GETFD) & FD_CLOEXEC, FD_CLOEXEC);
    SealedFile empty = sealedFile({});
    EXPECT_EQ(textOf(empty), "");
}

TEST(SealedFile, CannotBeChangedByAnyWayOnceItIsSealed) {
    SealedFile file = sealedFile("content");
    const std::string path = "/proc/self/fd/" + std::to_string(file.fd());
    const int other = open(path.c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_GE(other, 0);
    for (const int descriptor : {file.fd(), other}) {
        EXPECT_LT(pwrite(descriptor, "x", 1, 0), 0);
        EXPECT_NE(ftruncate(descriptor, 3), 0);
        EXPECT_NE(ftruncate(descriptor, 30), 0);
        EXPECT_EQ(mmap(nullptr, 7, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0), MAP_FAILED);
        EXPECT_NE(fcntl(descriptor, F_ADD_SEALS, 0), 0);
    }
    close(other);
    EXPECT_TRUE(file.append(bytesOf("more")));
    EXPECT_TRUE(file.clear());
    EXPECT_EQ(textOf(file), "content");
}

TEST(SealedFile, IsOnlySealedWhenNobodyCanStillWriteIt) {
    std::error_code error;
    SealedFile file = SealedFile::create("test", error);
    ASSERT_FALSE(file.append(bytesOf("content")));
    void* const window = mmap(nullptr, 7, PROT_READ | PROT_WRITE, MAP_SHARED, file.fd(), 0);
    ASSERT_NE(window, MAP_FAILED);
    EXPECT_TRUE(file.seal());
    EXPECT_FALSE(file.isSealed());
    munmap(window, 7);
    EXPECT_FALSE(file.seal());
}

TEST(SealedFile, IsOnlyAdoptedWhenItIsSealedAgainstEverything) {
    SealedFile sealed = sealedFile("content");
    std::error_code error;
    SealedFile adopted = SealedFile::adopt(dup(sealed.fd()), error);
    ASSERT_FALSE(error);
    EXPECT_EQ(textOf(adopted), "content");
    EXPECT_EQ(fcntl(adopted.fd(), F_GETFD) & FD_CLOEXEC, FD_CLOEXEC);

    const auto memory = [](int seals) {
        const int descriptor = memfd_create("test", MFD_CLOEXEC | MFD_ALLOW_SEALING);
        EXPECT_EQ(fcntl(descriptor, F_ADD_SEALS, seals), 0);
        return descriptor;
    };
    int pipeEnds[2];
    ASSERT_EQ(pipe(pipeEnds), 0);
    close(pipeEnds[1]);
    const int descriptors[] = {-1,
                               pipeEnds[0],
                               open("/proc/self/exe", O_RDONLY | O_CLOEXEC),
                               memory(0),
                               memory(F_SEAL_WRITE | F_SEAL_SHRINK | F_SEAL_GROW),
                               memory(F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL),
                               memory(F_SEAL_WRITE | F_SEAL_GROW | F_SEAL_SEAL)};
    for (const int descriptor : descriptors) {
        EXPECT_FALSE(SealedFile::adopt(descriptor, error).isOpen());
        EXPECT_EQ(error, std::errc::permission_denied);
        struct stat status {};
        EXPECT_NE(fstat(descriptor, &status), 0) << "closed";
    }
}

} // namespace
} // namespace platform
