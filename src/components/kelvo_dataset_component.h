#pragma once

#include <string>

namespace quorrel
{

// One kind of data in a dataset. A component finds its data when it is built, and never changes
// afterwards. It is made and owned as its concrete class (std::make_shared), which is final; nobody
// deletes one through this interface, whose destructor is therefore neither public nor virtual.
class kelvo_dataset_component
{
public:
    // Tells whether this component's data may be used together with the data of `other`, which is
    // normally the same kind of component in another dataset.
    [[nodiscard]] virtual bool compatible_schema(const kelvo_dataset_component& other) const = 0;

    // Makes the component's link below /var/db/timezone/ name this component's data: removes the
    // old link, and creates the new one even if that failed. Prints what fs::remove and
    // fs::create_symlink print, and throws what the latter throws, or std::bad_alloc.
    virtual void publish_link() const = 0;

protected:
    kelvo_dataset_component() = default;
    explicit kelvo_dataset_component(const std::string& path) : dataset_path(path) {}
    ~kelvo_dataset_component() = default;

    // The dataset's directory, as given; empty for the system partition.
    const std::string dataset_path;
};

} // namespace quorrel
