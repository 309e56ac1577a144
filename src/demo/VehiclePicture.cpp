// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/Roadside.h"

#include <algorithm>
#include <cmath>

namespace marvo::demo {

void drawVehicle(RoadView& view, const Vehicle& vehicle)
{
    constexpr Colour glass = rgb(38, 46, 54);
    constexpr Colour tyre = rgb(26, 27, 28);
    using Paint = RoadView::Paint;
    const VehicleBody& body = bodyOf(vehicle.kind);
    const double ahead = view.aheadOf(vehicle.distance);
    const double near = view.alongAt(ahead - body.length / 2);
    const double far = view.alongAt(ahead + body.length / 2);
    if (ahead - body.length / 2 < RoadView::nearest)
        return;
    // Its rear is seen when it drives the way the camera looks.
    const bool rear = (vehicle.travel == Travel::OurWay) != (view.camera().look == Look::Back);
    const auto across = [&](double share) { return vehicle.aside + share * body.width / 2; };
    const auto along = [&](double fromRear) { return std::lerp(near, far, rear ? fromRear : 1 - fromRear); };
    view.rect({near, across(-1.15), 0}, {far, across(1.15), 0}, shadow);

    // The side towards us: body, windows, wheels.
    const double hand = vehicle.aside > 0 ? -1 : 1;
    const double roof = 1 - body.roofInset;
    view.rect({near, across(hand), 0.3}, {far, across(hand), body.belt}, brightened(vehicle.paint, 0.82));
    const auto cabin = [&](double begin, double end, double low, double inset, double high, Colour colour) {
        view.face({{along(begin), across(hand), low},
                   {along(end), across(hand), low},
                   {along(body.roofEnd - inset), across(hand * roof), high},
                   {along(body.roofBegin + inset), across(hand * roof), high}},
                  colour);
    };
    const double front = std::min(1.0, body.roofEnd + 0.16);
    cabin(body.roofBegin / 3, front, body.belt, 0, body.height, brightened(vehicle.paint, 0.86));
    cabin(body.roofBegin / 3 + 0.08, front - 0.05, body.belt + 0.04, 0.03, body.height - 0.14, glass);
    for (const double axle : {0.2, 0.8}) {
        const double reach = 0.31 / body.length;
        view.face({{along(axle - reach), across(hand), 0.32},
                   {along(axle - 0.7 * reach), across(hand), 0.08},
                   {along(axle), across(hand), 0},
                   {along(axle + 0.7 * reach), across(hand), 0.08},
                   {along(axle + reach), across(hand), 0.32},
                   {along(axle + 0.7 * reach), across(hand), 0.55},
                   {along(axle), across(hand), 0.64},
                   {along(axle - 0.7 * reach), across(hand), 0.55}},
                  tyre);
    }

    // The end towards us: tyres, the slanted part with its window, bumper, plate, lights.
    const auto block = [&](double left, double right, double low, double high, Colour colour,
                           Paint paint = Paint::Daylight) {
        view.rect({near, across(left), low}, {near, across(right), high}, colour, paint);
    };
    block(-0.92, -0.62, 0, 0.4, tyre);
    block(0.62, 0.92, 0, 0.4, tyre);
    const double roofAlong = along(rear ? body.roofBegin : body.roofEnd);
    const auto slant = [&](double low, double foot, double high, double top, Colour colour) {
        view.face({{near, across(-foot), low},
                   {near, across(foot), low},
                   {roofAlong, across(top), high},
                   {roofAlong, across(-top), high}},
                  colour);
    };
    slant(body.belt, 0.98, body.height, roof, vehicle.paint);
    slant(body.belt + 0.05, 0.84, body.height - 0.12, roof - 0.1, glass);
    block(-1, 1, 0.26, body.belt, vehicle.paint);
    block(-1, 1, 0.26, 0.44, brightened(vehicle.paint, 0.55));
    block(-0.28, 0.28, 0.56, 0.68, rgb(236, 236, 230));
    const bool braking = rear && vehicle.braking;
    const Colour light = !rear ? rgb(244, 244, 232) : braking ? rgb(255, 44, 36) : rgb(150, 26, 26);
    for (const double side : {-0.81, 0.81})
        block(side - 0.15, side + 0.15, 0.64, 0.81, light, Paint::Lamp);
    if (braking)
        block(-0.18, 0.18, body.height - 0.14, body.height - 0.08, light, Paint::Lamp);
}

void drawWalker(RoadView& view, const Spot& feet, double phase, Colour coat)
{
    const double swing = 0.28 * std::sin(phase);
    const auto limb = [&](double top, double foot, double out, double width, Colour colour) {
        view.face({{feet.along, feet.aside - width, top},
                   {feet.along, feet.aside + width, top},
                   {feet.along, feet.aside + out + width, foot},
                   {feet.along, feet.aside + out - width, foot}},
                  colour);
    };
    view.rect({feet.along - 0.25, feet.aside - 0.4, 0}, {feet.along + 0.25, feet.aside + 0.4, 0}, shadow);
    limb(0.86, 0, -swing, 0.08, rgb(44, 48, 62));
    limb(0.86, 0, swing, 0.08, rgb(54, 58, 74));
    limb(1.46, 0.80, 0, 0.18, coat);
    limb(1.38, 0.82, -0.8 * swing, 0.055, brightened(coat, 0.8));
    limb(1.74, 1.51, 0, 0.1, rgb(214, 176, 148));
    limb(1.79, 1.66, 0, 0.11, rgb(36, 30, 28));
}

} // namespace marvo::demo
