// A plugin for clang-tidy 19: its checks traverse only what the project declares. Without it, more than half of the
// time goes into the headers of libraries, where the checks report nothing.

#include <clang/AST/ASTConsumer.h>
#include <clang/AST/ASTContext.h>
#include <clang/Basic/SourceManager.h>
#include <clang/Frontend/CompilerInstance.h>
#include <clang/Frontend/FrontendAction.h>
#include <clang/Frontend/FrontendPluginRegistry.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using namespace clang;

class ScopeSetter final : public ASTConsumer {
public:
    void HandleTranslationUnit(ASTContext& context) override {
        const auto& sources = context.getSourceManager();
        std::vector<Decl*> declarations;
        for (auto* declaration : context.getTranslationUnitDecl()->noload_decls()) {
            if (!sources.isInSystemHeader(sources.getExpansionLoc(declaration->getLocation())))
                declarations.push_back(declaration);
        }
        context.setTraversalScope(declarations);
    }
};

class ProjectScope final : public PluginASTAction {
protected:
    std::unique_ptr<ASTConsumer> CreateASTConsumer(CompilerInstance&, StringRef) override {
        return std::make_unique<ScopeSetter>();
    }

    bool ParseArgs(const CompilerInstance&, const std::vector<std::string>&) override { return true; }

    ActionType getActionType() override { return AddBeforeMainAction; }
};

const FrontendPluginRegistry::Add<ProjectScope> registered("korvane-project-scope",
                                                           "traverses only the project's declarations");

} // namespace
