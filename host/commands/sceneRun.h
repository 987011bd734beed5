// A command's work on many scenes: what `jobs` and similar commands have in common.
#pragma once

#include <QString>
#include <functional>

#include "host/base/childProcess.h"
#include "host/commands/resultOutput.h"
#include "host/commands/sceneOptions.h"

namespace vxH {

/// Which scenes there are and what is done with one, in a child process.
struct _sceneWork {
    QString fileFilter;  ///< which files of a folder are scenes: "*.hip;*.hipnc;"
    /// The scene's code and error, and what is handed on.
    std::function<_childResult(const QString& absoluteScenePath)> run;
    /// What is handed on of a scene whose process gave no answer.
    std::function<QByteArray(const _sceneHead& failed)> packFailed;
};

/// What the error stream has to say of a scene. That it has no jobs is a result like others.
QString lineOf(const _sceneHead& scene);

/// Loads a scene, whatever is to be known of it, and packs what is handed on.
/// @param load  from an absolute path to a result that begins with a `_sceneHead`
/// @param pack  from that to bytes
template <class _load, class _pack>
_sceneWork loadAndPack(const QString& fileFilter, const _load& load, const _pack& pack) {
    using _scene = decltype(load(QString{}));
    const auto run = [load, pack](const QString& path) -> _childResult {
        const _scene scene = load(path);
        return {scene.code, lineOf(scene), pack(scene)};
    };
    const auto packFailed = [pack](const _sceneHead& failed) {
        _scene scene;
        static_cast<_sceneHead&>(scene) = failed;
        return pack(scene);
    };
    return {fileFilter, run, packFailed};
}

/// What becomes of the results.
struct _sceneUse {
    /// Gets what is handed on, in the order of the scenes. @return false to end the run
    std::function<bool(const QByteArray& packed)> take;
    std::function<bool()> finish;  ///< after the last one. @return false when that failed
    bool printsToTerminal = false;
};

/// Loads every scene and hands its result on, with an error line for each that fails and a progress line. A signal that
/// ends the program (see host/base/interrupt.h), and a reader of the output that is gone, end it here.
/// @return an `_exitStatus`
int runScenes(const _sceneOptions& options, const _sceneWork& work, const _sceneUse& use);

/// Prints the results to the standard output, each in the frame. @param work  packs texts
int printScenes(const _sceneOptions& options, const _sceneWork& work, const _frame& frame);

/// The same with results of any kind in a format of theirs.
template <class _load, class _scene>
int printScenes(const _sceneOptions& options, const QString& fileFilter, const _load& load,
                const _formatOf<_scene>& format) {
    const _terminal terminal = standardOutputTerminal(options.colour);
    const auto pack = [&](const _scene& scene) { return format.text(scene, terminal).toUtf8(); };
    return printScenes(options, loadAndPack(fileFilter, load, pack), format.frame);
}

}  // namespace vxH
