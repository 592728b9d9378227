#include "platform/gdi.h"

#include <doctest/doctest.h>

#include <utility>

using namespace pixora;

TEST_CASE("an owner counts its handle from its making to its end") {
    const int before = live_gdi_handles;
    {
        const UniqueBrush brush(CreateSolidBrush(RGB(1, 2, 3)));
        CHECK(live_gdi_handles == before + 1);
        const UniquePen none;
        CHECK_FALSE(none);
        CHECK(live_gdi_handles == before + 1);
    }
    CHECK(live_gdi_handles == before);
}

TEST_CASE("a moved handle is released once, an overwritten one at once") {
    const int before = live_gdi_handles;
    {
        UniqueBrush first(CreateSolidBrush(RGB(1, 2, 3)));
        const HBRUSH handle = first.Get();
        UniqueBrush second(std::move(first));
        CHECK(second.Get() == handle);
        CHECK(live_gdi_handles == before + 1);
        second = UniqueBrush(CreateSolidBrush(RGB(4, 5, 6)));
        CHECK(live_gdi_handles == before + 1);
        LOGBRUSH facts{};
        CHECK(GetObjectW(handle, sizeof facts, &facts) == 0);
        CHECK(GetObjectW(second.Get(), sizeof facts, &facts) != 0);
    }
    CHECK(live_gdi_handles == before);
}

TEST_CASE("a selected object goes back at the end of its scope") {
    const UniqueMemoryDc dc(CreateCompatibleDC(nullptr));
    const UniquePen pen(CreatePen(PS_SOLID, 1, RGB(1, 2, 3)));
    const HGDIOBJ before = GetCurrentObject(dc.Get(), OBJ_PEN);
    {
        const Selected selected(dc.Get(), pen.Get());
        CHECK(GetCurrentObject(dc.Get(), OBJ_PEN) == pen.Get());
    }
    CHECK(GetCurrentObject(dc.Get(), OBJ_PEN) == before);
}
