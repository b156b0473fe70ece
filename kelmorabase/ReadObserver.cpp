// SPDX-License-Identifier: MIT
#include "ReadObserver.h"

#include <atomic>

namespace KELMORA {

namespace {
thread_local ReadObserver* tCurrent = nullptr;
// How many observers are installed on any thread: while none is, a record
// pays one plain load per child element for being observable.
std::atomic<int> gInstalled{0};
} // namespace

ReadObserver::~ReadObserver() = default;

void ReadObserver::ElementInValue(const QXmlStreamReader& /*reader*/) {}

ReadObserver* ReadObserver::Current() {
    if (gInstalled.load(std::memory_order_relaxed) == 0)
        return nullptr;
    return tCurrent;
}

ReadObserver::Scope::Scope(ReadObserver& observer) : m_previous(tCurrent) {
    tCurrent = &observer;
    gInstalled.fetch_add(1, std::memory_order_relaxed);
}

ReadObserver::Scope::~Scope() {
    tCurrent = m_previous;
    gInstalled.fetch_sub(1, std::memory_order_relaxed);
}

} // namespace KELMORA
