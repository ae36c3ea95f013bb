// The start of verlink-batch.
#include <exception>
#include <iostream>

#include "batch/batch.h"
#include "platform/system.h"

int main(int count, char** arguments) {
    std::ios::sync_with_stdio(false);
    verlink::platform::Let_Writes_Fail(false);
    try {
        return verlink::Batch_Main({arguments + 1, arguments + count}, std::cout, std::cerr);
    } catch (const std::exception& failure) {
        std::cerr << "verlink-batch: " << failure.what() << '\n';
        return 1;
    }
}
