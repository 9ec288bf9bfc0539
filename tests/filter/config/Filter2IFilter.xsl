<?xml version="1.0" encoding="UTF-8"?>
<!-- "nothing" becomes a filter without a condition; "raw" is written as it is. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform"
                xmlns:f="http://corvane.example/marlo/NetworkTopology/TopologyFilter"
                exclude-result-prefixes="f">
  <xsl:output method="xml" encoding="UTF-8"/>
  <xsl:template match="/f:filters">
    <xsl:choose>
      <xsl:when test="f:raw">
        <xsl:value-of select="f:raw" disable-output-escaping="yes"/>
      </xsl:when>
      <xsl:otherwise>
        <iFilters>
          <xsl:apply-templates select="f:condition | f:nothing | f:hosts"/>
        </iFilters>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>
  <xsl:template match="f:condition">
    <iFilter name="{@name}" objectType="{@objectType}">
      <whereQueryStr><xsl:value-of select="."/></whereQueryStr>
    </iFilter>
  </xsl:template>
  <xsl:template match="f:nothing">
    <iFilter name="{@name}" objectType="{@objectType}"/>
  </xsl:template>
  <xsl:template match="f:hosts">
    <iAssertion name="{@name}" objectType="Node">
      <whereQueryStr>
        <xsl:for-each select="f:HostIDFile">
          <xsl:for-each select="document(string(.))/f:hosts/f:host">
            <xsl:value-of select="concat(' ', .)"/>
          </xsl:for-each>
        </xsl:for-each>
      </whereQueryStr>
    </iAssertion>
  </xsl:template>
</xsl:stylesheet>
