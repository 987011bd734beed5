// Finds functions, and knows those that need more than a scene file.
#include "evaluate/functions.h"

#include <algorithm>
#include <array>

namespace vxV {

namespace {

/// A function, or all whose names begin so, and what they need.
struct _need {
    std::string_view name;  ///< ends with "*" where only the beginning counts
    _reason reason;
};

constexpr std::array needs{
    // first match wins
    _need{"bbox", _reason::geometry},
    _need{"centroid", _reason::geometry},
    _need{"point*", _reason::geometry},
    _need{"prim*", _reason::geometry},
    _need{"vertex*", _reason::geometry},
    _need{"detail*", _reason::geometry},
    _need{"volume*", _reason::geometry},
    _need{"npoints*", _reason::geometry},
    _need{"nprims*", _reason::geometry},
    _need{"nvertices*", _reason::geometry},
    _need{"nedges*", _reason::geometry},
    _need{"edge*", _reason::geometry},
    _need{"haspointattrib", _reason::geometry},
    _need{"hasprimattrib", _reason::geometry},
    _need{"hasvertexattrib", _reason::geometry},
    _need{"hasdetailattrib", _reason::geometry},
    _need{"attrib*", _reason::geometry},
    _need{"listbyval*", _reason::geometry},
    _need{"uniqueval*", _reason::geometry},
    _need{"nuniqueval*", _reason::geometry},
    _need{"curvature", _reason::geometry},
    _need{"normal", _reason::geometry},
    _need{"arclen*", _reason::geometry},
    _need{"surflen", _reason::geometry},
    _need{"surfdist", _reason::geometry},
    _need{"xyzdist", _reason::geometry},
    _need{"mindist", _reason::geometry},
    _need{"uvdist", _reason::geometry},
    _need{"unituv", _reason::geometry},
    _need{"realuv", _reason::geometry},
    _need{"metaweight", _reason::geometry},
    _need{"groupbyval*", _reason::geometry},
    _need{"degree", _reason::geometry},
    _need{"spknot", _reason::geometry},
    _need{"isclosed", _reason::geometry},
    _need{"isspline", _reason::geometry},
    _need{"iscollided", _reason::geometry},
    _need{"isstuck", _reason::geometry},
    _need{"seampoints", _reason::geometry},
    _need{"dop*", _reason::simulation},
    _need{"lop*", _reason::stage},
    _need{"usd*", _reason::stage},
    _need{"pythonexpr*", _reason::python},
    _need{"rand", _reason::random},
    _need{"random", _reason::random},
    _need{"nrandom", _reason::random},
    _need{"noise", _reason::random},
    _need{"snoise", _reason::random},
    _need{"onoise", _reason::random},
    _need{"turb", _reason::random},
    _need{"chop*", _reason::cooking},
    _need{"ic*", _reason::cooking},
    _need{"oc*", _reason::cooking},
    _need{"pic*", _reason::cooking},
    _need{"tex*", _reason::cooking},
    _need{"origin*", _reason::cooking},
    _need{"vtorigin*", _reason::cooking},
    _need{"objtransform*", _reason::cooking},
    _need{"chi", _reason::uncertain},
    _need{"opselect*", _reason::session},
    _need{"opflag*", _reason::session},
    _need{"file*", _reason::session},
    _need{"system", _reason::session},
    _need{"run", _reason::session},
    _need{"bezier", _reason::interpolation},
    _need{"linear", _reason::interpolation},
    _need{"constant", _reason::interpolation},
    _need{"cubic", _reason::interpolation},
    _need{"spline", _reason::interpolation},
    _need{"ease*", _reason::interpolation},
    _need{"qlinear", _reason::interpolation},
    _need{"raw", _reason::interpolation},
    _need{"match*", _reason::interpolation},
    _need{"vmatch*", _reason::interpolation},
    _need{"cycle*", _reason::interpolation},
    _need{"repeat*", _reason::interpolation},
};

bool means(std::string_view pattern, std::string_view name) {
    return pattern.ends_with('*') ? name.starts_with(pattern.substr(0, pattern.size() - 1)) : name == pattern;
}

}  // namespace

_arity arityOf(const _function& function) {
    const auto optional = function.arguments.find('?');
    if (optional == std::string_view::npos) return {function.arguments.size(), function.arguments.size()};
    return {optional, function.arguments.size() - 1};
}

char kindOf(const _function& function, std::size_t place) {
    return function.arguments[place + (function.arguments.find('?') <= place ? 1 : 0)];
}

const _function* functionNamed(std::string_view name) {
    for (const auto rows : {numberFunctions(), textFunctions(), sceneFunctions()}) {
        const auto row = std::find_if(rows.begin(), rows.end(), [&](const _function& f) { return f.name == name; });
        if (row != rows.end()) return &*row;
    }
    return nullptr;
}

_reason reasonAgainst(std::string_view name) {
    const auto need = std::find_if(needs.begin(), needs.end(), [&](const _need& n) { return means(n.name, name); });
    return need != needs.end() ? need->reason : _reason::unknownFunction;
}

}  // namespace vxV
