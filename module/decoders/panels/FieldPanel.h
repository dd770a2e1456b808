// A panel: the whole record of an instrument's numbered fields is kept, and the range that the screen asked
// for goes out once per batch that changed a field.
//
// A Kind tells the table, the Init text's head, the key and what it subscribes to.
#ifndef TICKMUX_MODULE_DECODERS_PANELS_FIELDPANEL_H
#define TICKMUX_MODULE_DECODERS_PANELS_FIELDPANEL_H

#include <cstring>
#include <span>
#include <utility>

#include "module/decoders/panels/PanelRecord.h"
#include "module/framework/init_reader.h"
#include "module/framework/packet_decoder.h"
#include "module/framework/subscription.h"
#include "module/wire/codecs.h"

template <class Kind>
class PanelDecoder : public CRTMPacketDecoder {
protected:
    using Key = typename Kind::Key;

    PanelDecoder(HWND hWnd, const PacketSlots& slots) : CRTMPacketDecoder(hWnd, slots) {}

    bool Follows(const Key& key) const { return key == m_Key.Get(); }
    const FieldRange& Range() const { return m_Range; }
    // What the inquiry's fields tell before the first packet: the base, and numbers that stay.
    virtual void TakeFields() = 0;

    template <int Number>
    auto& Value() {
        return m_Fields.template Value<Number>();
    }
    template <int Number>
    auto& Color() {
        return m_Fields.template Color<Number>();
    }
    // The colour of a value by how it lies to the base.
    template <int Number, class Figure>
    void ColorAgainst(Figure base, Figure value) {
        PutColor(Color<Number>(), DirectionFrom(base, value));
    }

private:
    int OnInit(InitReader& in) override;
    void OnEndUnpack() override;
    void OnRelease() override { m_Key.GiveUp(); }

    using Record = PanelRecord<Kind::kTable>;

    FollowedCode<Key, Kind::kClass, Kind::kFlags> m_Key{*this};
    FieldRange m_Range;
    RequestTag m_Tag{};
    Record m_Fields;
    std::span<char> m_Shown;  // the range of them
};

// A text that is refused leaves key, range and record as they were, and the tag of a change that still waits.
template <class Kind>
int PanelDecoder<Kind>::OnInit(InitReader& in) {
    typename Kind::Init init;
    if (!in.Read(init)) {
        return 0;
    }
    const FieldRange range{ToLong(init.FirstField), ToLong(init.LastField)};
    if (!range.IsIn(Kind::kTable) || in.Remain() != static_cast<int>(Record::SizeOf(range))) {
        return 0;
    }
    m_Tag = in.Tag();
    m_Range = range;
    m_Shown = m_Fields.Of(range);
    m_Fields.Clear();
    in.ReadBytes(m_Shown.data(), in.Remain());
    TakeFields();
    m_Key.MoveTo(init.Key);
    return 1;
}

template <class Kind>
void PanelDecoder<Kind>::OnEndUnpack() {
    ViewBuffer buffer = ViewBuffer::Unwritten(sizeof(m_Tag) + m_Shown.size());
    if (buffer) {
        buffer.As<RequestTag>() = m_Tag;
        std::memcpy(buffer.Bytes() + sizeof(m_Tag), m_Shown.data(), m_Shown.size());
        PostToView(std::move(buffer));
    }
}

#endif
