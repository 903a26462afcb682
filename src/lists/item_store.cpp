#include "lists/item_store.h"

#include <algorithm>
#include <cstring>
#include <deque>
#include <limits>
#include <unordered_map>

#include "core/serial_date.h"
#include "lists/key_sort.h"
#include "lists/text_arena.h"

namespace lists {

// How the name key follows from the text, which spares keeping it.
enum class NameKey : std::uint8_t { Folder, File, LowerCaseFile, OfItsOwn };

struct StoredItem {
    const char* text;  // in the arena; a name key of its own stands behind, its length first
    std::int64_t largo;
    double fecha;
    std::uint32_t textSize;
    std::uint32_t notes, type, disco, ruta;  // numbers in the pool
    std::uint8_t picture, smallPicture;
    NameKey nameKey;
    bool dateKeyIsSerial;

    [[nodiscard]] std::string_view name() const { return {text, textSize}; }
};

namespace {

constexpr std::int64_t noLargo = std::numeric_limits<std::int64_t>::min();

std::string asciiLower(std::string_view text) {
    std::string lower(text);
    for (char& byte : lower)
        if (byte >= 'A' && byte <= 'Z') byte = static_cast<char>(byte - 'A' + 'a');
    return lower;
}

NameKey nameKeyOf(std::string_view text, std::string_view key) {
    if (key.size() != text.size() + 1) return NameKey::OfItsOwn;
    const std::string_view rest = key.substr(1);
    if (key.front() == 'a' && rest == text) return NameKey::Folder;
    if (key.front() == 'b' && rest == text) return NameKey::File;
    return key.front() == 'b' && rest == asciiLower(text) ? NameKey::LowerCaseFile : NameKey::OfItsOwn;
}

std::string paddedSize(std::int64_t largo) {
    constexpr std::size_t width = 10;
    const std::string padded = "000000000000000" + std::to_string(largo);
    return padded.substr(padded.size() - width);
}

}  // namespace

struct ItemStore::Impl {
    TextArena arena;
    TextPool pool;
    std::deque<StoredItem> items;      // in the order of adding
    std::vector<std::uint32_t> order;  // the number of the item at each position
    Sorting sorting;

    [[nodiscard]] const StoredItem& at(std::size_t position) const { return items[order[position]]; }
    [[nodiscard]] static std::string nameKey(const StoredItem& item);
    [[nodiscard]] std::string subItem(const StoredItem& item, int number) const;
    [[nodiscard]] auto test(const Units& which) const;
    [[nodiscard]] std::vector<std::string_view> keys(int key, TextArena& computed) const;
};

std::string ItemStore::Impl::nameKey(const StoredItem& item) {
    switch (item.nameKey) {
        case NameKey::Folder:
            return std::string("a").append(item.name());
        case NameKey::File:
            return std::string("b").append(item.name());
        case NameKey::LowerCaseFile:
            return std::string("b").append(asciiLower(item.name()));
        case NameKey::OfItsOwn:
            break;
    }
    std::uint32_t size = 0;
    const char* behind = item.text + item.textSize;
    std::memcpy(&size, behind, sizeof size);
    return {behind + sizeof size, size};
}

std::string ItemStore::Impl::subItem(const StoredItem& item, int number) const {
    switch (number) {
        case SubItem::Notes:
            return std::string(pool.text(item.notes));
        case SubItem::Type:
            return std::string(pool.text(item.type));
        case SubItem::Size:
            return item.largo == noLargo ? " " : std::to_string(item.largo) + " KB";
        case SubItem::Date:
            return core::dateText(item.fecha);
        case SubItem::DateKey:
            return item.dateKeyIsSerial ? core::decimalText(item.fecha) : core::dateText(item.fecha);
        case SubItem::SizeKey:
            return item.largo == noLargo ? std::string() : paddedSize(item.largo);
        case SubItem::NameKey:
            return nameKey(item);
        case SubItem::Disco:
            return std::string(pool.text(item.disco));
        case SubItem::Ruta:
            return std::string(pool.text(item.ruta));
        default:
            return {};
    }
}

// The sort key of each item by its number; what has to be computed goes into the given arena.
std::vector<std::string_view> ItemStore::Impl::keys(int key, TextArena& computed) const {
    std::vector<std::string_view> result;
    result.reserve(items.size());
    for (const StoredItem& item : items) {
        switch (key) {
            case SubItem::Text:
                result.push_back(item.name());
                break;
            case SubItem::Notes:
                result.push_back(pool.text(item.notes));
                break;
            case SubItem::Type:
                result.push_back(pool.text(item.type));
                break;
            case SubItem::Disco:
                result.push_back(pool.text(item.disco));
                break;
            case SubItem::Ruta:
                result.push_back(pool.text(item.ruta));
                break;
            default:
                result.push_back(computed.add(subItem(item, key)));
        }
    }
    return result;
}

ItemStore::ItemStore() : m_impl(std::make_unique<Impl>()) {}
ItemStore::~ItemStore() = default;

void ItemStore::clear() {
    const Sorting kept = m_impl->sorting;
    m_impl = std::make_unique<Impl>();
    m_impl->sorting = kept;
}

void ItemStore::add(const ListItem& item) {
    TextPool& pool = m_impl->pool;
    StoredItem added{};
    added.nameKey = nameKeyOf(item.text, item.nameKey);
    if (added.nameKey == NameKey::OfItsOwn) {
        const auto size = static_cast<std::uint32_t>(item.nameKey.size());
        std::string both = item.text;
        both.append(reinterpret_cast<const char*>(&size), sizeof size).append(item.nameKey);
        added.text = m_impl->arena.add(both).data();
    } else {
        added.text = m_impl->arena.add(item.text).data();
    }
    added.textSize = static_cast<std::uint32_t>(item.text.size());
    added.largo = item.largo.value_or(noLargo);
    added.fecha = item.fecha;
    added.notes = pool.add(item.notes);
    added.type = pool.add(item.type);
    added.disco = pool.add(item.disco);
    added.ruta = pool.add(item.ruta);
    added.picture = static_cast<std::uint8_t>(item.picture);
    added.smallPicture = static_cast<std::uint8_t>(item.smallPicture);
    added.dateKeyIsSerial = item.dateKeyIsSerial;
    m_impl->order.push_back(static_cast<std::uint32_t>(m_impl->items.size()));
    m_impl->items.push_back(added);
}

std::size_t ItemStore::size() const {
    return m_impl->items.size();
}

std::string_view ItemStore::text(std::size_t position) const {
    return m_impl->at(position).name();
}

std::string ItemStore::subItem(std::size_t position, int number) const {
    return m_impl->subItem(m_impl->at(position), number);
}

int ItemStore::picture(std::size_t position) const {
    return m_impl->at(position).picture;
}

int ItemStore::smallPicture(std::size_t position) const {
    return m_impl->at(position).smallPicture;
}

void ItemStore::setNotes(std::size_t position, std::string_view notes) {
    m_impl->items[m_impl->order[position]].notes = m_impl->pool.add(notes);
}

// Asks once a unit.
auto ItemStore::Impl::test(const Units& which) const {
    return [this, &which, known = std::unordered_map<std::uint32_t, bool>()](const StoredItem& item) mutable {
        const auto [unit, isNew] = known.try_emplace(item.disco);
        if (isNew) unit->second = which(pool.text(item.disco));
        return unit->second;
    };
}

void ItemStore::renameUnits(const Units& which, std::string_view disco) {
    const std::uint32_t renamed = m_impl->pool.add(disco);
    auto isMeant = m_impl->test(which);
    for (StoredItem& item : m_impl->items)
        if (isMeant(item)) item.disco = renamed;
}

void ItemStore::removeUnits(const Units& which) {
    constexpr std::uint32_t gone = -1;
    std::vector<std::uint32_t> numbers;  // by the old one
    std::deque<StoredItem> kept;
    auto isMeant = m_impl->test(which);
    for (const StoredItem& item : m_impl->items) {
        const bool goes = isMeant(item);
        numbers.push_back(goes ? gone : static_cast<std::uint32_t>(kept.size()));
        if (!goes) kept.push_back(item);
    }
    m_impl->items = std::move(kept);
    for (std::uint32_t& number : m_impl->order) number = numbers[number];
    std::erase(m_impl->order, gone);
}

std::size_t ItemStore::numberOf(std::size_t position) const {
    return m_impl->order[position];
}

void ItemStore::sort(Sorting sorting) {
    m_impl->sorting = sorting;
    sortAgain();
}

void ItemStore::sortAgain() {
    if (!m_impl->sorting.on) return;
    TextArena computed;
    m_impl->order = orderOfKeys(m_impl->keys(m_impl->sorting.key, computed), m_impl->sorting.descending);
}

const ItemStore::Sorting& ItemStore::sorting() const {
    return m_impl->sorting;
}

std::size_t ItemStore::bytesUsed() const {
    return m_impl->arena.bytesUsed() + m_impl->pool.bytesUsed() + m_impl->items.size() * sizeof(StoredItem) +
           m_impl->order.capacity() * sizeof(std::uint32_t);
}

bool ItemStore::isConsistent() const {
    std::vector<bool> seen(size());
    for (const std::uint32_t number : m_impl->order) {
        if (number >= size() || seen[number]) return false;
        seen[number] = true;
    }
    return m_impl->order.size() == size();
}

}  // namespace lists
