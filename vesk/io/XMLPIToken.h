/// \file
/// CXMLPIToken: a processing-instruction token.
#ifndef VESK_IO_XMLPITOKEN_H
#define VESK_IO_XMLPITOKEN_H

#include "vesk/io/IXMLPIToken.h"
#include "vesk/io/XMLToken.h"

namespace vesk {
namespace io {

/// A processing instruction (kind XMLProcessingInstruction): target and data.
class VESK_API CXMLPIToken : public CXMLToken, public virtual IXMLPIToken {
  VESK_DECLARE_CLASS(CXMLPIToken);

  /// A token holding the instruction's target and data.
  CXMLPIToken(const vesk::base::CUnicodeString& target, const vesk::base::CUnicodeString& data)
      : CXMLToken(XMLProcessingInstruction), m_target(target), m_data(data) {}
  /// Releases the token's strings.
  ~CXMLPIToken() override;

  const vesk::base::CUnicodeString& GetTarget() const override { return m_target; }
  const vesk::base::CUnicodeString& GetData() const override { return m_data; }

 private:
  vesk::base::CUnicodeString m_target;
  vesk::base::CUnicodeString m_data;
};

}  // namespace io
}  // namespace vesk

#endif
