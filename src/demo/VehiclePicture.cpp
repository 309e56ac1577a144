// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/Roadside.h"

#include <algorithm>
#include <cmath>

namespace marvo::demo {

namespace {

const Colour glass = rgb(38, 46, 54);
const Colour tyre = rgb(26, 27, 28);

/// Sizes of a vehicle in metres.
struct Shape
{
    double width = 1.82;
    double belt = 0.88; ///< height at which the windows begin
    double height = 1.46;
    double roofInset = 0.2;  ///< how much narrower the roof is on each side
    double roofBegin = 0.16; ///< where the roof begins and ends, as shares of the length from the rear
    double roofEnd = 0.72;
};

Shape shapeOf(VehicleKind kind)
{
    switch (kind) {
    case VehicleKind::Car:
        return {};
    case VehicleKind::Van:
        return {1.92, 1.0, 1.95, 0.14, 0.03, 0.80};
    case VehicleKind::Bus:
        return {2.5, 1.3, 3.1, 0.04, 0.0, 1.0};
    }
    return {};
}

class Picture
{
public:
    Picture(RoadView& view, const Vehicle& vehicle)
        : m_view(view), m_vehicle(vehicle), m_shape(shapeOf(vehicle.kind)), m_half(m_shape.width / 2)
    {
        const double half = vehicleLength(vehicle.kind) / 2;
        const bool back = view.camera().look == Look::Back;
        m_near = vehicle.distance + (back ? half : -half);
        m_far = vehicle.distance + (back ? -half : half);
        // Its rear is what is near when it drives the way the camera looks.
        m_seesRear = (vehicle.travel == Travel::OurWay) != back;
    }

    void draw()
    {
        if (m_view.aheadOf(m_near) < RoadView::nearest)
            return;
        const double margin = m_half + 0.15;
        m_view.shadow({{m_near, m_vehicle.aside - margin, 0},
                       {m_near, m_vehicle.aside + margin, 0},
                       {m_far, m_vehicle.aside + margin, 0},
                       {m_far, m_vehicle.aside - margin, 0}},
                      0.5);
        side();
        end();
        lights();
    }

private:
    double across(double share) const { return m_vehicle.aside + share * m_half; }

    /// A place along the vehicle, as a share of its length from its own rear.
    double along(double shareFromRear) const
    {
        return m_seesRear ? std::lerp(m_near, m_far, shareFromRear) : std::lerp(m_far, m_near, shareFromRear);
    }

    /// The side that the camera sees when the vehicle is not straight ahead.
    void side()
    {
        const bool leftHand = m_vehicle.aside > 0;
        // On our right we see its left side; looking back the hands change but not the side that is nearer.
        const double hand = leftHand ? -1 : 1;
        const double low = 0.3;
        const double roof = across(hand * (1 - m_shape.roofInset));
        m_view.face({{m_near, across(hand), low},
                     {m_far, across(hand), low},
                     {m_far, across(hand), m_shape.belt},
                     {m_near, across(hand), m_shape.belt}},
                    brightened(m_vehicle.paint, 0.82));
        m_view.face({{along(m_shape.roofBegin / 3), across(hand), m_shape.belt},
                     {along(std::min(1.0, m_shape.roofEnd + 0.16)), across(hand), m_shape.belt},
                     {along(m_shape.roofEnd), roof, m_shape.height},
                     {along(m_shape.roofBegin), roof, m_shape.height}},
                    brightened(m_vehicle.paint, 0.86));
        m_view.face(
            {{along(m_shape.roofBegin * 0.7 + 0.05), across(hand * 0.99), m_shape.belt + 0.04},
             {along(std::min(0.97, m_shape.roofEnd + 0.10)), across(hand * 0.99), m_shape.belt + 0.04},
             {along(m_shape.roofEnd - 0.02), roof, m_shape.height - 0.14},
             {along(m_shape.roofBegin + 0.05), roof, m_shape.height - 0.14}},
            glass);
        for (const double axle : {0.2, 0.8}) {
            const double reach = 0.31 / vehicleLength(m_vehicle.kind);
            m_view.face({{along(axle - reach), across(hand), 0.32},
                         {along(axle - 0.7 * reach), across(hand), 0.08},
                         {along(axle), across(hand), 0},
                         {along(axle + 0.7 * reach), across(hand), 0.08},
                         {along(axle + reach), across(hand), 0.32},
                         {along(axle + 0.7 * reach), across(hand), 0.55},
                         {along(axle), across(hand), 0.64},
                         {along(axle - 0.7 * reach), across(hand), 0.55}},
                        tyre);
        }
    }

    void end()
    {
        block(-0.92, -0.62, 0, 0.4, tyre);
        block(0.62, 0.92, 0, 0.4, tyre);
        // The slanted part of the body above the belt, seen from the end.
        const double roofAlong = m_seesRear ? along(m_shape.roofBegin) : along(m_shape.roofEnd);
        const double roofHalf = 1 - m_shape.roofInset;
        m_view.face({{m_near, across(-0.98), m_shape.belt},
                     {m_near, across(0.98), m_shape.belt},
                     {roofAlong, across(roofHalf), m_shape.height},
                     {roofAlong, across(-roofHalf), m_shape.height}},
                    m_vehicle.paint);
        m_view.face({{m_near, across(-0.84), m_shape.belt + 0.05},
                     {m_near, across(0.84), m_shape.belt + 0.05},
                     {roofAlong, across(roofHalf - 0.1), m_shape.height - 0.12},
                     {roofAlong, across(-roofHalf + 0.1), m_shape.height - 0.12}},
                    glass);
        block(-1, 1, 0.26, m_shape.belt, m_vehicle.paint);
        block(-1, 1, 0.26, 0.44, brightened(m_vehicle.paint, 0.55));
        block(-0.28, 0.28, m_seesRear ? 0.58 : 0.40, m_seesRear ? 0.70 : 0.52, rgb(236, 236, 230)); // plate
        if (!m_seesRear)
            block(-0.5, 0.5, 0.56, 0.72, rgb(48, 50, 52)); // grille
    }

    void lights()
    {
        const double low = m_vehicle.kind == VehicleKind::Bus ? 0.7 : 0.62;
        const Colour colour = !m_seesRear         ? rgb(244, 244, 232)
                              : m_vehicle.braking ? rgb(255, 44, 36)
                                                  : rgb(150, 26, 26);
        for (const double hand : {-1.0, 1.0}) {
            lamp(hand * 0.96, hand * 0.66, low, low + 0.17, colour);
            if (m_seesRear && m_vehicle.braking)
                lamp(hand * 0.9, hand * 0.72, low + 0.04, low + 0.13, rgb(255, 150, 130));
        }
        if (m_seesRear && m_vehicle.braking)
            lamp(-0.18, 0.18, m_shape.height - 0.14, m_shape.height - 0.08, rgb(255, 60, 50));
    }

    void block(double left, double right, double low, double high, Colour colour)
    {
        m_view.face({{m_near, across(left), low},
                     {m_near, across(right), low},
                     {m_near, across(right), high},
                     {m_near, across(left), high}},
                    colour);
    }

    void lamp(double left, double right, double low, double high, Colour colour)
    {
        m_view.glow({{m_near, across(left), low},
                     {m_near, across(right), low},
                     {m_near, across(right), high},
                     {m_near, across(left), high}},
                    colour);
    }

    RoadView& m_view;
    const Vehicle& m_vehicle;
    Shape m_shape;
    double m_half;
    double m_near = 0;
    double m_far = 0;
    bool m_seesRear = true;
};

} // namespace

void drawVehicle(RoadView& view, const Vehicle& vehicle) { Picture(view, vehicle).draw(); }

void drawWalker(RoadView& view, const Spot& feet, double phase, Colour coat)
{
    const double swing = 0.28 * std::sin(phase);
    const double a = feet.aside;
    const double s = feet.along;
    const auto limb = [&](double topAside, double top, double footAside, double foot, double width,
                          Colour colour) {
        view.face({{s, topAside - width, top},
                   {s, topAside + width, top},
                   {s, footAside + width, foot},
                   {s, footAside - width, foot}},
                  colour);
    };
    view.shadow(
        {{s - 0.25, a - 0.4, 0}, {s - 0.25, a + 0.4, 0}, {s + 0.25, a + 0.4, 0}, {s + 0.25, a - 0.4, 0}},
        0.35);
    limb(a, 0.86, a - swing, 0, 0.08, rgb(44, 48, 62));
    limb(a, 0.86, a + swing, 0, 0.08, rgb(54, 58, 74));
    limb(a, 1.38, a + 0.8 * swing, 0.82, 0.055, brightened(coat, 0.7));
    limb(a, 1.46, a, 0.80, 0.18, coat);
    limb(a, 1.38, a - 0.8 * swing, 0.82, 0.055, brightened(coat, 0.85));
    const double h = 1.63;
    view.face({{s, a - 0.11, h},
               {s, a - 0.08, h - 0.12},
               {s, a + 0.08, h - 0.12},
               {s, a + 0.11, h},
               {s, a + 0.08, h + 0.12},
               {s, a - 0.08, h + 0.12}},
              rgb(214, 176, 148));
    view.face(
        {{s, a - 0.12, h + 0.02}, {s, a + 0.12, h + 0.02}, {s, a + 0.08, h + 0.15}, {s, a - 0.08, h + 0.15}},
        rgb(36, 30, 28));
}

} // namespace marvo::demo
