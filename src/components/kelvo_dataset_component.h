#pragma once

#include <string>

namespace quorrel
{

// One kind of data in a dataset. A component finds its data when it is built and never changes
// afterwards. It is created and owned as its concrete class (std::make_shared), which is final.
// Nobody deletes one through this interface, so its destructor is neither public nor virtual.
class kelvo_dataset_component
{
public:
    // Returns whether this component's data may be used together with that of `other`, normally the
    // same kind of component in another dataset.
    [[nodiscard]] virtual bool compatible_schema(const kelvo_dataset_component& other) const = 0;

    // Replaces the component's link in /var/db/timezone/ with one to this component's data. Warns
    // if the old link cannot be removed, and creates the new one anyway. Throws what
    // fs::create_symlink throws, or std::bad_alloc.
    virtual void publish_link() const = 0;

protected:
    kelvo_dataset_component() = default;
    explicit kelvo_dataset_component(const std::string& path) : dataset_path(path) {}
    ~kelvo_dataset_component() = default;

    // The dataset's directory, as given; empty for the system partition.
    const std::string dataset_path;
};

} // namespace quorrel
