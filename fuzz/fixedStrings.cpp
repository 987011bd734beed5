// The texts of fixed capacity, from any content on, against plain texts that are cut at the capacity.
#include <string>

#include "fuzz/fuzzRecords.h"

namespace {

using vxFuzz::expect;

/// The text with `by` in the place of every `part` of `searched`, which has the same length.
template <typename Model>
Model replaced(const Model& text, const Model& searched, const Model& part, const Model& by) {
    Model result;
    std::size_t done = 0;
    for (std::size_t hit = 0; (hit = searched.find(part, done)) != Model::npos; done = hit + part.size())
        result.append(text, done, hit - done).append(by);
    return result.append(text, done);
}

/// How a kind of text meets the model, a standard string of its units.
template <quint16 Capacity>
struct _wideKind {
    using Text = vxS::_vxString<Capacity>;
    using Unit = char16_t;
    static QStringView view(const std::u16string& model) { return {model.data(), qsizetype(model.size())}; }
    static std::u16string units(const Text& text) { return text.toQString().toStdU16String(); }
    static QStringView tail(QStringView text, std::size_t from) { return text.mid(static_cast<qsizetype>(from)); }
    static std::u16string replacedInAnyCase(const std::u16string& model, const std::u16string& part,
                                            const std::u16string& by) {
        return view(model)
            .toString()
            .replace(view(part).toString(), view(by).toString(), Qt::CaseInsensitive)
            .toStdU16String();
    }
};
template <quint16 Capacity>
struct _narrowKind {
    using Text = vxS::_vxString8_allSize<Capacity>;
    using Unit = char;
    static std::string_view view(const std::string& model) { return model; }
    static std::string units(const Text& text) { return std::string(text.view()); }
    static std::string_view tail(std::string_view text, std::size_t from) { return text.substr(from); }
    static std::string replacedInAnyCase(const std::string& model, const std::string& part, const std::string& by) {
        return replaced(model, folded(model), folded(part), by);
    }
    static std::string folded(std::string model) {
        for (char& letter : model)
            if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter | 0x20);
        return model;
    }
};

template <typename Kind>
class _comparison {
    using Unit = typename Kind::Unit;
    using _model = std::basic_string<Unit>;

 public:
    explicit _comparison(vxFuzz::_input& bytes) : input(bytes) {
        const auto record = vxFuzz::bytesOf(places);
        std::fill(record.begin(), record.end(), quint8{0x5A});
        input.patch(vxFuzz::bytesOf(places.text));
        model = Kind::units(places.text);
        expect(model.size() <= places.text.capacity(), "no text is longer than its capacity");
    }

    void run() {
        while (!input.isEmpty()) {
            step();
            model.resize(std::min<std::size_t>(model.size(), places.text.capacity()));
            expect(Kind::units(places.text) == model, "a text changes like a plain one that is cut");
            expect(places.before == guard && places.after == guard, "nothing is written beside a text");
            if (isWritten) vxFuzz::expectSound(places.text);
        }
    }

 private:
    static constexpr quint16 guard = 0x5A5A;

    _model units() {
        const std::string_view bytes = input.bytes(input.number<quint8>() * sizeof(Unit));
        _model taken(bytes.size() / sizeof(Unit), Unit{});
        if (!taken.empty()) std::memcpy(taken.data(), bytes.data(), taken.size() * sizeof(Unit));
        return taken;
    }

    void step() {
        auto& text = places.text;
        const auto kind = input.number<quint8>();
        const auto position = input.number<qint16>();
        const auto count = input.number<qint16>();
        const auto at = static_cast<std::size_t>(position);
        const bool inside = position >= 0 && at <= model.size();
        const _model source = units();
        const auto view = Kind::view(source);
        switch (kind % 9) {
            case 0:
                text = view;
                model = source;
                isWritten = true;
                break;
            case 1:
                text.insert(position, view);
                if (inside) model.insert(at, source);
                break;
            case 2:
                text.remove(position, count);
                if (inside && count > 0) model.erase(at, static_cast<std::size_t>(count));
                break;
            case 3:
                text.setLength(position);
                if (inside) model.resize(at);
                break;
            case 4: {
                const _model by = units();
                text.replaceCaseSen(view, Kind::view(by));
                if (!source.empty()) model = replaced(model, model, source, by);
                break;
            }
            case 7: {
                const _model by = units();
                text.replaceCaseInsen(view, Kind::view(by));
                if (!source.empty()) model = Kind::replacedInAnyCase(model, source, by);
                break;
            }
            case 5:
                if (inside) text = Kind::tail(text.view(), at);
                if (inside) model.erase(0, at);
                break;
            case 6:
                if (inside) text.insert(position, text.view());
                if (inside) model.insert(at, _model(model));
                break;
            default:
                compare(source, inside ? at : 0);
        }
    }

    void compare(const _model& source, std::size_t from) {
        const auto& text = places.text;
        const auto hit = model.find(source, from);
        expect(text.indexOf(Kind::view(source), static_cast<vxS::_size>(from)) ==
                   (hit == _model::npos ? -1 : static_cast<vxS::_size>(hit)),
               "a part is found where it is");
        const typename Kind::Text other(Kind::view(source));
        const _model cut = source.substr(0, text.capacity());
        expect((text == other) == (model == cut), "texts are equal when their characters are");
        expect((text < other) == (model < cut), "texts are ordered by their characters");
        expect(text.isEmpty() == model.empty(), "a text without characters is empty");
    }

    struct {
        quint16 before;
        typename Kind::Text text;
        quint16 after;
    } places;
    vxFuzz::_input& input;
    _model model;
    bool isWritten = false;
};

template <typename Kind>
void run(vxFuzz::_input& input) {
    _comparison<Kind>(input).run();
}

}  // namespace

/// Input: kind of text (1 byte), places to overwrite in it, then steps.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vxFuzz::_input input(data, size);
    switch (input.number<quint8>() % 4) {
        case 0:
            run<_wideKind<15>>(input);
            break;
        case 1:
            run<_wideKind<200>>(input);
            break;
        case 2:
            run<_narrowKind<15>>(input);
            break;
        default:
            run<_narrowKind<150>>(input);
    }
    return 0;
}
