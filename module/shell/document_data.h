// Data per open document, kept by a reactor of the host's document manager.
#pragma once

#include <acdocman.h>

#include <map>

/// Holds one T for each document that asked for one, and drops it when the document is about to be destroyed. It
/// follows the host's documents from its construction to its destruction.
template <class T>
class AsdkDataManager final : public AcApDocManagerReactor {
  public:
    AsdkDataManager() { acDocManagerPtr()->addReactor(this); }
    ~AsdkDataManager() override {
        if (AcApDocManager* manager = acDocManagerPtr()) {
            manager->removeReactor(this);
        }
    }
    AsdkDataManager(const AsdkDataManager&) = delete;
    AsdkDataManager& operator=(const AsdkDataManager&) = delete;

    void documentToBeDestroyed(AcApDocument* document) override { data_.erase(document); }

    /// The document's data, made on the first call.
    T& docData(AcApDocument* document) { return data_[document]; }
    /// The current document's data.
    T& docData() { return docData(acDocManagerPtr()->curDocument()); }

  private:
    std::map<AcApDocument*, T> data_;
};

/// The data that the module keeps for a document: none yet.
class CDocData {};
