#pragma once

#include <string>

namespace quorrel
{

// One kind of data in a dataset. A component finds its data when it is built and never changes
// afterwards.
//
// Made with std::make_shared of the concrete class, so that shared_ptr deletes it as that class;
// hence the protected, non-virtual destructor.
class kelvo_dataset_component
{
public:
    // Returns whether libraries that read `other`'s data can read this data too. `other` is
    // normally the same kind of component in another dataset.
    [[nodiscard]] virtual bool compatible_schema(const kelvo_dataset_component& other) const = 0;

    // Replaces the component's link in /var/db/timezone/ with one to this component's data. Warns
    // if the old link cannot be removed, and still tries to create the new one. Warns and throws as
    // fs::create_symlink does if it cannot be created. May also throw std::bad_alloc.
    virtual void publish_link() const = 0;

protected:
    explicit kelvo_dataset_component(const std::string& path = {}) : dataset_path(path) {}
    ~kelvo_dataset_component() = default;

    // The dataset's directory, as given; empty for the system partition.
    const std::string dataset_path;
};

} // namespace quorrel
