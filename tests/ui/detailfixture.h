#pragma once

#include "tests/store/storefixture.h"
#include "ui/folderdetailmodel.h"
#include "ui/picturestore.h"

/// The detail of a folder over a store of fakes.
struct DetailFixture : StoreFixture {
    /// Starts the store over these folders and shows the first.
    void showFirst(const QList<DockFolder> &folders)
    {
        startWith(folders);
        model = std::make_unique<FolderDetailModel>(*store, pictures);
        model->setFolder(folders.first().id);
    }

    PictureStore pictures;
    std::unique_ptr<FolderDetailModel> model;
};
