#include "app/simple_sparkler_checker.hpp"

/// Whatever the document, it is read to an end. (The score of a hostile version may stop the
/// program, so none is asked for.)
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    larkvox::SimpleSparklerChecker checker;
    checker.parse({reinterpret_cast<const char*>(data), size});
    return 0;
}
