<?xml version="1.0" encoding="UTF-8"?>
<!--
  Compiles a document of filters into the intermediate vocabulary: each assertion and each filter
  becomes an SQL condition on NODE, IF or ADDR, in which #name# stands for another filter.

  What is kept everywhere:
  - Words are separated by single blanks, and a condition is " ( " body " ) ", so that it can stand
    anywhere in a larger one.
  - A text of the document reaches the condition inside a quoted literal alone (the template
    "literal"). Columns are the names that the schema allows. Numbers go through number().
  - Tests across kinds are sub-selects with aliases of their own, which end in "_": nothing joins,
    no object comes twice, and objects without the other kind stay.
  - What may be NULL and is negated ends in "is not true", so that NULL is no match of what is
    negated.
  - Texts are halved where they have to be walked: no recursion is as deep as a text is long.
-->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform"
    xmlns:f="http://corvane.example/marlo/NetworkTopology/TopologyFilter"
    exclude-result-prefixes="f">

  <xsl:output method="xml" encoding="UTF-8" indent="no"/>

  <xsl:key name="definitions" match="/f:filters/*" use="@name"/>

  <!-- ===== The document ===== -->

  <xsl:template match="/">
    <xsl:call-template name="bounds"/>
    <iFilters>
      <xsl:apply-templates select="f:filters/*"/>
    </iFilters>
  </xsl:template>

  <xsl:template match="f:nodeAssertion | f:interfaceAssertion | f:addressAssertion">
    <iAssertion>
      <xsl:call-template name="definition"/>
    </iAssertion>
  </xsl:template>

  <xsl:template match="f:nodeFilter | f:interfaceFilter | f:addressFilter">
    <iFilter>
      <xsl:call-template name="definition"/>
    </iFilter>
  </xsl:template>

  <!-- The content of one definition: its kind, its name and its condition. -->
  <xsl:template name="definition">
    <xsl:variable name="alias">
      <xsl:choose>
        <xsl:when test="starts-with(local-name(), 'node')">NODE</xsl:when>
        <xsl:when test="starts-with(local-name(), 'interface')">IF</xsl:when>
        <xsl:otherwise>ADDR</xsl:otherwise>
      </xsl:choose>
    </xsl:variable>
    <xsl:attribute name="objectType">
      <xsl:choose>
        <xsl:when test="$alias = 'NODE'">Node</xsl:when>
        <xsl:when test="$alias = 'IF'">Interface</xsl:when>
        <xsl:otherwise>Address</xsl:otherwise>
      </xsl:choose>
    </xsl:attribute>
    <xsl:attribute name="name"><xsl:value-of select="@name"/></xsl:attribute>
    <whereQueryStr>
      <xsl:text> </xsl:text>
      <xsl:apply-templates select="f:operator">
        <xsl:with-param name="alias" select="string($alias)"/>
      </xsl:apply-templates>
      <xsl:text> </xsl:text>
    </whereQueryStr>
  </xsl:template>

  <xsl:template name="refuse">
    <xsl:param name="why"/>
    <xsl:message terminate="yes">
      <xsl:value-of select="concat('Filter ', ancestor-or-self::*[@name][last()]/@name, ': ', $why)"/>
    </xsl:message>
  </xsl:template>

  <!-- What makes a document dear, bounded well above what people write: tests, and characters that
       have to be escaped, which cost a hundred times what others do. The processor keeps until the
       end what it makes of both. Dots count where they may belong to the name of a table. -->
  <xsl:template name="bounds">
    <xsl:variable name="dot" select="substring('.', 1, contains(f:filters, ' IF.') or
        contains(f:filters, ' NODE.') or contains(f:filters, ' ADDR.'))"/>
    <xsl:variable name="others" select="translate(f:filters, concat(&quot;!%_'#&quot;, $dot), '')"/>
    <xsl:if test="string-length(f:filters) - string-length($others) &gt; 100000">
      <xsl:message terminate="yes">
        <xsl:text>The texts have more than 100000 of the characters ! % _ ' # (and of dots, </xsl:text>
        <xsl:text>if one has " IF.", " NODE." or " ADDR."): use several documents.</xsl:text>
      </xsl:message>
    </xsl:if>
    <xsl:if test="count(//f:attribute) &gt; 10000">
      <xsl:message terminate="yes">
        <xsl:text>The document has more than 10000 tests: use several documents.</xsl:text>
      </xsl:message>
    </xsl:if>
  </xsl:template>

  <!-- ===== Operators ===== -->

  <!-- ( test AND test ... ), with no blank around it. Engines bound how deep a chain of tests and
       how deep parentheses nest: many tests are put in groups of 20, and references stand first,
       where what they bring in has the fewest open parentheses and operators before it. -->
  <xsl:template match="f:operator">
    <xsl:param name="alias"/>
    <xsl:variable name="oper" select="normalize-space(@oper)"/>
    <xsl:variable name="tests" select="f:attribute | f:reference"/>
    <xsl:if test="count($tests) != 1 and ($oper = 'NOT' or $oper = 'NOOP')">
      <xsl:call-template name="refuse">
        <xsl:with-param name="why"
            select="concat('the operator ', $oper, ' takes exactly one test.')"/>
      </xsl:call-template>
    </xsl:if>
    <!-- Here, since a schema that counts takes six times as long to read. -->
    <xsl:if test="count($tests) &gt; 500">
      <xsl:call-template name="refuse">
        <xsl:with-param name="why" select="'an operator takes up to 500 tests.'"/>
      </xsl:call-template>
    </xsl:if>
    <xsl:variable name="isGrouped" select="count($tests) &gt; 20"/>
    <xsl:text>( </xsl:text>
    <xsl:for-each select="$tests">
      <xsl:sort select="count(self::f:attribute)" data-type="number"/>
      <xsl:if test="position() != 1"><xsl:value-of select="concat(' ', $oper, ' ')"/></xsl:if>
      <xsl:if test="$isGrouped and position() mod 20 = 1">( </xsl:if>
      <xsl:call-template name="signed-test">
        <xsl:with-param name="alias" select="$alias"/>
        <xsl:with-param name="denials"
            select="($oper = 'NOT') + (normalize-space(@negate) = 'true')"/>
        <xsl:with-param name="isAlone" select="last() = 1"/>
      </xsl:call-template>
      <xsl:if test="$isGrouped and (position() mod 20 = 0 or position() = last())"> )</xsl:if>
    </xsl:for-each>
    <xsl:text> )</xsl:text>
  </xsl:template>

  <!-- A test, denied by its own mark, by NOT or by both. One that is alone and as it is has the
       parentheses of its operator. -->
  <xsl:template name="signed-test">
    <xsl:param name="alias"/>
    <xsl:param name="denials"/>
    <xsl:param name="isAlone"/>
    <xsl:variable name="isBare" select="$isAlone and $denials = 0"/>
    <xsl:if test="$denials = 2">( </xsl:if>
    <xsl:if test="not($isBare)">( </xsl:if>
    <xsl:apply-templates select=".">
      <xsl:with-param name="alias" select="$alias"/>
    </xsl:apply-templates>
    <xsl:if test="not($isBare)"> )</xsl:if>
    <xsl:if test="$denials &gt; 0"> is not true</xsl:if>
    <xsl:if test="$denials = 2"> ) is not true</xsl:if>
  </xsl:template>

  <!-- What the other filter brings in stands between parentheses, those around the test. -->
  <xsl:template match="f:reference">
    <xsl:variable name="kind" select="substring(local-name(../..), 1, 4)"/>
    <xsl:variable name="other" select="key('definitions', string(.))"/>
    <xsl:if test="$other and substring(local-name($other[1]), 1, 4) != $kind">
      <xsl:call-template name="refuse">
        <xsl:with-param name="why"
            select="concat('the filter ', ., ' selects objects of another kind.')"/>
      </xsl:call-template>
    </xsl:if>
    <xsl:value-of select="concat('#', ., '#')"/>
  </xsl:template>

  <xsl:template match="f:attribute">
    <xsl:param name="alias"/>
    <xsl:apply-templates select="*" mode="test">
      <xsl:with-param name="alias" select="$alias"/>
    </xsl:apply-templates>
  </xsl:template>

  <!-- ===== Tests of one column ===== -->

  <!-- An alias begins with N, I or A, and so tells the kind of the objects that it stands for. -->

  <xsl:template match="*" mode="test">
    <xsl:param name="alias"/>
    <xsl:variable name="column">
      <xsl:apply-templates select="." mode="column">
        <xsl:with-param name="alias" select="$alias"/>
      </xsl:apply-templates>
    </xsl:variable>
    <xsl:apply-templates select="*" mode="value">
      <xsl:with-param name="column" select="concat($alias, '.', $column)"/>
    </xsl:apply-templates>
  </xsl:template>

  <!-- The column of an element: its own name, unless told here. -->
  <xsl:template match="*" mode="column"><xsl:value-of select="local-name()"/></xsl:template>
  <xsl:template match="f:name" mode="column">entityname</xsl:template>
  <xsl:template match="f:objectID | f:ownerID" mode="column">objid</xsl:template>
  <xsl:template match="f:nodeID" mode="column">nodeobjid</xsl:template>
  <xsl:template match="f:zone" mode="column">zonenumber</xsl:template>
  <xsl:template match="f:kind" mode="column">entitytype</xsl:template>
  <xsl:template match="f:statusChangeTime" mode="column">statuschangetimeutc</xsl:template>
  <xsl:template match="f:createTime" mode="column">createtimeutc</xsl:template>
  <xsl:template match="f:changeTime" mode="column">changetimeutc</xsl:template>
  <xsl:template match="f:lastPingTime" mode="column">lastpingtimeutc</xsl:template>
  <xsl:template match="f:lastPingStateUpdTime" mode="column">lastpingstateupdtimeutc</xsl:template>
  <xsl:template match="f:legacyID" mode="column">
    <xsl:param name="alias"/>
    <xsl:if test="starts-with($alias, 'A')">address</xsl:if>
    <xsl:text>qrm</xsl:text>
    <xsl:choose>
      <xsl:when test="starts-with($alias, 'A')">id</xsl:when>
      <xsl:otherwise>objid</xsl:otherwise>
    </xsl:choose>
  </xsl:template>
  <xsl:template match="f:routeDistinguisher" mode="column">
    <xsl:param name="alias"/>
    <xsl:if test="starts-with($alias, 'N')">v4managementaddress</xsl:if>
    <xsl:choose>
      <xsl:when test="starts-with($alias, 'N')">rd</xsl:when>
      <xsl:otherwise>routedistinguisher</xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- ===== Values ===== -->

  <xsl:template match="f:present" mode="value">
    <xsl:param name="column"/>
    <xsl:apply-templates select="." mode="presence">
      <xsl:with-param name="column" select="$column"/>
    </xsl:apply-templates>
  </xsl:template>

  <xsl:template match="f:absent" mode="value">
    <xsl:param name="column"/>
    <xsl:text>( </xsl:text>
    <xsl:apply-templates select="." mode="presence">
      <xsl:with-param name="column" select="$column"/>
    </xsl:apply-templates>
    <xsl:text> ) is not true</xsl:text>
  </xsl:template>

  <!-- Numbers and states are there unless NULL, times unless NULL or 0, texts unless NULL or empty;
       "-" in sysOID stands for none. -->
  <xsl:template match="*" mode="presence">
    <xsl:param name="column"/>
    <xsl:value-of select="concat($column, &quot; &lt;&gt; ''&quot;)"/>
  </xsl:template>
  <xsl:template match="f:sysOID/*" mode="presence">
    <xsl:param name="column"/>
    <xsl:value-of select="concat($column, &quot; not in ( '' , '-' )&quot;)"/>
  </xsl:template>
  <xsl:template match="f:statusChangeTime/* | f:createTime/* | f:changeTime/* | f:ascChangeTime/* |
      f:lastPingTime/* | f:lastPingStateUpdTime/*" mode="presence">
    <xsl:param name="column"/>
    <xsl:value-of select="concat($column, ' &lt;&gt; 0')"/>
  </xsl:template>
  <xsl:template match="f:l2DomainId/* | f:ipLevel/* | f:status/* | f:v6CompoundStatus/* |
      f:v6GlobalStatus/* | f:v6SiteStatus/* | f:snmpState/* | f:routeDistinguisher/* |
      f:ifIndex/* | f:ifType/* | f:ifSpeed/* | f:vpi/* | f:vci/* | f:kind/* | f:ifOperStatus/* |
      f:ifAdminState/* | f:addressType/* | f:v6ScopeType/* | f:prefixLength/* | f:pingState/* |
      f:pingStatus/* | f:v6AddressType/* | f:v6AddressNtmState/* | f:v6AddressStatus/* |
      f:number/* | f:priority/* | f:hsrpState/* | f:type/* | f:application/*"
      mode="presence">
    <xsl:param name="column"/>
    <xsl:value-of select="concat($column, ' is not null')"/>
  </xsl:template>

  <!-- A flag is set from 1 on; what is not set may be NULL. Of a node's isHSRP any value but 0
       counts. -->
  <xsl:template match="f:boolean" mode="value">
    <xsl:param name="column"/>
    <xsl:variable name="relation">
      <xsl:choose>
        <xsl:when test="parent::f:isHSRP and starts-with($column, 'N')">&lt;&gt; 0</xsl:when>
        <xsl:otherwise>&gt;= 1</xsl:otherwise>
      </xsl:choose>
    </xsl:variable>
    <xsl:choose>
      <xsl:when test="normalize-space() = 'true'">
        <xsl:value-of select="concat($column, ' ', $relation)"/>
      </xsl:when>
      <xsl:otherwise>
        <xsl:value-of select="concat('( ', $column, ' ', $relation, ' ) is not true')"/>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="f:integer" mode="value">
    <xsl:param name="column"/>
    <xsl:call-template name="comparison">
      <xsl:with-param name="column" select="$column"/>
      <xsl:with-param name="value" select="string(number())"/>
    </xsl:call-template>
  </xsl:template>

  <xsl:template match="f:time" mode="value">
    <xsl:param name="column"/>
    <xsl:variable name="seconds">
      <xsl:call-template name="seconds">
        <xsl:with-param name="time" select="normalize-space()"/>
      </xsl:call-template>
    </xsl:variable>
    <xsl:call-template name="comparison">
      <xsl:with-param name="column" select="$column"/>
      <xsl:with-param name="value" select="string($seconds)"/>
    </xsl:call-template>
  </xsl:template>

  <xsl:template match="f:previousDiscovery" mode="value">
    <xsl:param name="column"/>
    <xsl:call-template name="comparison">
      <xsl:with-param name="column" select="$column"/>
      <xsl:with-param name="value" select="'( select max( T_.prevdiscoendtime ) from state T_ )'"/>
    </xsl:call-template>
  </xsl:template>

  <!-- A column beside a value, as the context's attribute "compare" has it. -->
  <xsl:template name="comparison">
    <xsl:param name="column"/>
    <xsl:param name="value"/>
    <xsl:variable name="compare" select="normalize-space(@compare)"/>
    <xsl:choose>
      <xsl:when test="$compare = 'notEqual'">
        <xsl:value-of select="concat('( ', $column, ' = ', $value, ' ) is not true')"/>
      </xsl:when>
      <xsl:otherwise>
        <xsl:value-of select="concat($column, ' ')"/>
        <xsl:choose>
          <xsl:when test="$compare = 'less'">&lt;</xsl:when>
          <xsl:when test="$compare = 'lessOrEqual'">&lt;=</xsl:when>
          <xsl:when test="$compare = 'greater'">&gt;</xsl:when>
          <xsl:when test="$compare = 'greaterOrEqual'">&gt;=</xsl:when>
          <xsl:otherwise>=</xsl:otherwise>
        </xsl:choose>
        <xsl:value-of select="concat(' ', $value)"/>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="f:state" mode="value">
    <xsl:param name="column"/>
    <xsl:variable name="numbers">
      <xsl:apply-templates select=".." mode="state-numbers"/>
    </xsl:variable>
    <xsl:variable name="isDenied" select="normalize-space(@compare) = 'notEqual'"/>
    <xsl:if test="$isDenied">( </xsl:if>
    <xsl:value-of select="concat($column, ' in ( ')"/>
    <xsl:call-template name="state-list">
      <xsl:with-param name="words" select="concat(normalize-space(), ' ')"/>
      <xsl:with-param name="numbers" select="string($numbers)"/>
    </xsl:call-template>
    <xsl:text> )</xsl:text>
    <xsl:if test="$isDenied"> ) is not true</xsl:if>
  </xsl:template>

  <!-- The numbers of words that each end in a blank; the schema bounds how many there are. -->
  <xsl:template name="state-list">
    <xsl:param name="words"/>
    <xsl:param name="numbers"/>
    <xsl:variable name="word" select="concat(' ', substring-before($words, ' '), '=')"/>
    <xsl:variable name="rest" select="substring-after($words, ' ')"/>
    <xsl:value-of select="number(substring-before(substring-after($numbers, $word), ' '))"/>
    <xsl:if test="$rest != ''">
      <xsl:text> , </xsl:text>
      <xsl:call-template name="state-list">
        <xsl:with-param name="words" select="$rest"/>
        <xsl:with-param name="numbers" select="$numbers"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <!-- The words of a state and the numbers that the store has for them. -->
  <xsl:template match="f:status | f:v6CompoundStatus | f:v6GlobalStatus | f:v6SiteStatus |
      f:pingStatus" mode="state-numbers">
    <xsl:text> NoStatus=0 Normal=1 Unknown=2 Warning=3 Marginal=4 Major=5 Critical=6</xsl:text>
    <xsl:text> Unmanaged=10 Restricted=11 Testing=12 Disabled=13 </xsl:text>
  </xsl:template>
  <xsl:template match="f:snmpState | f:pingState" mode="state-numbers">
    <xsl:text> Responding=0 NotResponding=1 Unreachable=2 AgentDown=3 Disabled=4 </xsl:text>
  </xsl:template>
  <xsl:template match="f:ifAdminState" mode="state-numbers"> Up=1 Down=2 Testing=3 </xsl:template>
  <xsl:template match="f:ifOperStatus" mode="state-numbers">
    <xsl:text> Up=1 Down=2 Testing=3 Unknown=4 Dormant=5 NotPresent=6 LowerLayerDown=7 </xsl:text>
  </xsl:template>
  <xsl:template match="f:ipLevel" mode="state-numbers"> AllProtocol=0 IPv4=4 IPv6=6 </xsl:template>
  <xsl:template match="f:kind" mode="state-numbers"> Interface=2 LogicalInterface=3 </xsl:template>
  <xsl:template match="f:addressType" mode="state-numbers">
    <xsl:text> Unknown=0 IPv4=1 IPv6=2 Physical=3 IDName=4 FDN=5 DNS=16 </xsl:text>
  </xsl:template>
  <xsl:template match="f:v6ScopeType" mode="state-numbers">
    <xsl:text> Unknown=0 LinkLocal=1 SiteLocal=2 Global=3 </xsl:text>
  </xsl:template>
  <xsl:template match="f:v6AddressType" mode="state-numbers">
    <xsl:text> Stateless=1 Stateful=2 Unknown=3 </xsl:text>
  </xsl:template>
  <xsl:template match="f:v6AddressStatus" mode="state-numbers">
    <xsl:text> Preferred=1 Deprecated=2 Inaccessible=3 Unknown=4 </xsl:text>
  </xsl:template>
  <xsl:template match="f:v6AddressNtmState" mode="state-numbers">
    <xsl:text> Reachable=1 Stale=2 Delay=3 Probe=4 Invalid=5 Unknown=6 </xsl:text>
  </xsl:template>
  <xsl:template match="f:hsrpState" mode="state-numbers">
    <xsl:text> Initial=1 Learn=2 Listen=3 Speak=4 StandBy=5 Active=6 MiscState=7</xsl:text>
    <xsl:text> Unavailable=8 NoResponse=9 </xsl:text>
  </xsl:template>

  <!-- A text with "*" and "?", or one as it stands. -->
  <xsl:template match="f:string | f:exact" mode="value">
    <xsl:param name="column"/>
    <xsl:variable name="isDenied" select="normalize-space(@compare) = 'notEqual'"/>
    <xsl:if test="$isDenied">( </xsl:if>
    <xsl:call-template name="text-match">
      <xsl:with-param name="column" select="$column"/>
      <xsl:with-param name="text" select="string()"/>
      <xsl:with-param name="isPattern" select="boolean(self::f:string)"/>
    </xsl:call-template>
    <xsl:if test="$isDenied"> ) is not true</xsl:if>
  </xsl:template>

  <xsl:template name="text-match">
    <xsl:param name="column"/>
    <xsl:param name="text"/>
    <xsl:param name="isPattern" select="true()"/>
    <xsl:variable name="stars" select="substring('*', 1, $isPattern)"/>
    <xsl:if test="$isPattern and string-length($text) &gt; 10000">
      <xsl:call-template name="refuse">
        <xsl:with-param name="why" select="'a text is longer than 10000 characters.'"/>
      </xsl:call-template>
    </xsl:if>
    <xsl:choose>
      <!-- No column holds as much: nothing is equal. -->
      <xsl:when test="string-length(translate($text, $stars, '')) &gt; 2000">
        <xsl:value-of select="concat($column, ' &lt;&gt; ', $column)"/>
      </xsl:when>
      <xsl:when test="$isPattern and (contains($text, '*') or contains($text, '?'))">
        <xsl:value-of select="concat($column, ' like ')"/>
        <xsl:call-template name="like-literal">
          <xsl:with-param name="text" select="$text"/>
        </xsl:call-template>
        <xsl:text> escape '!'</xsl:text>
      </xsl:when>
      <xsl:otherwise>
        <xsl:value-of select="concat($column, ' = ')"/>
        <xsl:call-template name="literal">
          <xsl:with-param name="text" select="$text"/>
        </xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- ===== Addresses ===== -->

  <!-- Nodes that own the address or are managed through it, interfaces that own it, addresses that
       are it. -->
  <xsl:template match="f:IPAddress" mode="test">
    <xsl:param name="alias"/>
    <xsl:choose>
      <xsl:when test="starts-with($alias, 'A')">
        <xsl:apply-templates select="*" mode="address-row">
          <xsl:with-param name="alias" select="$alias"/>
        </xsl:apply-templates>
      </xsl:when>
      <xsl:otherwise>
        <xsl:variable name="owner">
          <xsl:if test="starts-with($alias, 'N')">node</xsl:if>
        </xsl:variable>
        <xsl:value-of select="concat($alias, '.objid in ( select A_.', $owner,
            'objid from address A_ where ')"/>
        <xsl:apply-templates select="*" mode="address-row">
          <xsl:with-param name="alias" select="'A_'"/>
        </xsl:apply-templates>
        <xsl:text> )</xsl:text>
        <xsl:if test="f:IPv4 and starts-with($alias, 'N')">
          <xsl:text> OR </xsl:text>
          <xsl:apply-templates select="f:IPv4" mode="management">
            <xsl:with-param name="alias" select="$alias"/>
          </xsl:apply-templates>
        </xsl:if>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- With a route distinguisher the private address is compared, without one the public. -->
  <xsl:template match="f:IPv4" mode="address-row">
    <xsl:param name="alias"/>
    <xsl:variable name="column">
      <xsl:if test="not(f:OADId)">pub</xsl:if>
      <xsl:text>v4address</xsl:text>
    </xsl:variable>
    <xsl:text>( </xsl:text>
    <xsl:apply-templates select="f:address | f:prefix | f:present" mode="v4">
      <xsl:with-param name="column" select="concat($alias, '.', $column)"/>
    </xsl:apply-templates>
    <xsl:apply-templates select="f:OADId">
      <xsl:with-param name="column" select="concat($alias, '.routedistinguisher')"/>
    </xsl:apply-templates>
    <xsl:text> )</xsl:text>
  </xsl:template>

  <xsl:template match="f:IPv6" mode="address-row">
    <xsl:param name="alias"/>
    <xsl:text>( </xsl:text>
    <xsl:apply-templates select="f:address | f:prefix | f:present" mode="v6">
      <xsl:with-param name="alias" select="$alias"/>
    </xsl:apply-templates>
    <xsl:apply-templates select="f:OADId">
      <xsl:with-param name="column" select="concat($alias, '.routedistinguisher')"/>
    </xsl:apply-templates>
    <xsl:text> )</xsl:text>
  </xsl:template>

  <!-- The public management address; a route distinguisher is that of the node. -->
  <xsl:template match="f:IPv4 | f:managementAddress" mode="management">
    <xsl:param name="alias"/>
    <xsl:text>( </xsl:text>
    <xsl:apply-templates select="f:address | f:prefix | f:present" mode="v4">
      <xsl:with-param name="column" select="concat($alias, '.pubv4managementadd')"/>
    </xsl:apply-templates>
    <xsl:apply-templates select="f:OADId">
      <xsl:with-param name="column" select="concat($alias, '.v4managementaddressrd')"/>
    </xsl:apply-templates>
    <xsl:text> )</xsl:text>
  </xsl:template>

  <xsl:template match="f:managementAddress" mode="test">
    <xsl:param name="alias"/>
    <xsl:apply-templates select="." mode="management">
      <xsl:with-param name="alias" select="$alias"/>
    </xsl:apply-templates>
  </xsl:template>

  <xsl:template match="f:privateManagementAddress" mode="test">
    <xsl:param name="alias"/>
    <xsl:apply-templates select="f:address | f:prefix | f:present" mode="v4">
      <xsl:with-param name="column" select="concat($alias, '.v4managementaddress')"/>
    </xsl:apply-templates>
    <xsl:apply-templates select="f:OADId">
      <xsl:with-param name="column" select="concat($alias, '.v4managementaddressrd')"/>
    </xsl:apply-templates>
  </xsl:template>

  <xsl:template match="f:OADId">
    <xsl:param name="column"/>
    <xsl:value-of select="concat(' AND ', $column, ' = ', number())"/>
  </xsl:template>

  <xsl:template match="f:present" mode="v4">
    <xsl:param name="column"/>
    <xsl:value-of select="concat($column, &quot; &lt;&gt; ''&quot;)"/>
  </xsl:template>

  <xsl:template match="f:address" mode="v4">
    <xsl:param name="column"/>
    <xsl:call-template name="text-match">
      <xsl:with-param name="column" select="$column"/>
      <xsl:with-param name="text" select="string()"/>
    </xsl:call-template>
  </xsl:template>

  <!-- Whole octets of a prefix are the beginning of the text. Where it ends within an octet, the
       values of that octet stand in a list for each number of their digits. -->
  <xsl:template match="f:prefix" mode="v4">
    <xsl:param name="column"/>
    <xsl:variable name="address" select="substring-before(normalize-space(), '/')"/>
    <xsl:variable name="length" select="number(substring-after(normalize-space(), '/'))"/>
    <xsl:variable name="octets" select="floor($length div 8)"/>
    <xsl:variable name="size" select="1 - ($length mod 8 = 0)"/>
    <xsl:variable name="rest1" select="substring-after($address, '.')"/>
    <xsl:variable name="rest2" select="substring-after($rest1, '.')"/>
    <xsl:variable name="whole">
      <xsl:if test="$octets &gt; 0">
        <xsl:value-of select="concat(number(substring-before($address, '.')), '.')"/>
      </xsl:if>
      <xsl:if test="$octets &gt; 1">
        <xsl:value-of select="concat(number(substring-before($rest1, '.')), '.')"/>
      </xsl:if>
      <xsl:if test="$octets &gt; 2">
        <xsl:value-of select="concat(number(substring-before($rest2, '.')), '.')"/>
      </xsl:if>
    </xsl:variable>
    <xsl:choose>
      <xsl:when test="$octets = 4">
        <xsl:value-of select="concat($column, &quot; = '&quot;, $whole,
            number(substring-after($rest2, '.')), &quot;'&quot;)"/>
      </xsl:when>
      <xsl:when test="$size = 0">
        <xsl:value-of select="concat($column, &quot; like '&quot;, $whole, '%',
            substring('.%.%.%', 1 + 2 * $octets), &quot;'&quot;)"/>
      </xsl:when>
      <xsl:otherwise>
        <xsl:variable name="octet">
          <xsl:choose>
            <xsl:when test="$octets = 0">
              <xsl:value-of select="substring-before($address, '.')"/>
            </xsl:when>
            <xsl:when test="$octets = 1">
              <xsl:value-of select="substring-before($rest1, '.')"/>
            </xsl:when>
            <xsl:when test="$octets = 2">
              <xsl:value-of select="substring-before($rest2, '.')"/>
            </xsl:when>
            <xsl:otherwise><xsl:value-of select="substring-after($rest2, '.')"/></xsl:otherwise>
          </xsl:choose>
        </xsl:variable>
        <xsl:variable name="count"
            select="number(substring('128 64  32  16  8   4   2   ', 4 * ($length mod 8) - 3, 3))"/>
        <xsl:variable name="first" select="number($octet) - number($octet) mod $count"/>
        <xsl:variable name="last" select="$first + $count - 1"/>
        <xsl:text>( </xsl:text>
        <xsl:call-template name="octet-values">
          <xsl:with-param name="column" select="$column"/>
          <xsl:with-param name="whole" select="string($whole)"/>
          <xsl:with-param name="isLast" select="$octets = 3"/>
          <xsl:with-param name="first" select="$first"/>
          <xsl:with-param name="last" select="$last"/>
        </xsl:call-template>
        <xsl:text> )</xsl:text>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- The values from first to last, with those of equally many digits in one list. -->
  <xsl:template name="octet-values">
    <xsl:param name="column"/>
    <xsl:param name="whole"/>
    <xsl:param name="isLast"/>
    <xsl:param name="first"/>
    <xsl:param name="last"/>
    <xsl:variable name="digits" select="string-length(string($first))"/>
    <xsl:variable name="most" select="number(substring('9  99 999', 3 * $digits - 2, 3))"/>
    <xsl:variable name="end" select="$last * ($last &lt; $most) + $most * ($last &gt;= $most)"/>
    <xsl:choose>
      <xsl:when test="$isLast"><xsl:value-of select="$column"/></xsl:when>
      <xsl:otherwise>
        <xsl:value-of select="concat('substr( ', $column, ' , 1 , ',
            string-length($whole) + $digits + 1, ' )')"/>
      </xsl:otherwise>
    </xsl:choose>
    <xsl:text> in ( </xsl:text>
    <xsl:call-template name="octet-list">
      <xsl:with-param name="whole" select="$whole"/>
      <xsl:with-param name="end" select="substring('.', 1, 1 - $isLast)"/>
      <xsl:with-param name="first" select="$first"/>
      <xsl:with-param name="last" select="$end"/>
    </xsl:call-template>
    <xsl:text> )</xsl:text>
    <xsl:if test="$end &lt; $last">
      <xsl:text> OR </xsl:text>
      <xsl:call-template name="octet-values">
        <xsl:with-param name="column" select="$column"/>
        <xsl:with-param name="whole" select="$whole"/>
        <xsl:with-param name="isLast" select="$isLast"/>
        <xsl:with-param name="first" select="$end + 1"/>
        <xsl:with-param name="last" select="$last"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <!-- At most 128 values. -->
  <xsl:template name="octet-list">
    <xsl:param name="whole"/>
    <xsl:param name="end"/>
    <xsl:param name="first"/>
    <xsl:param name="last"/>
    <xsl:value-of select="concat(&quot;'&quot;, $whole, $first, $end, &quot;'&quot;)"/>
    <xsl:if test="$first &lt; $last">
      <xsl:text> , </xsl:text>
      <xsl:call-template name="octet-list">
        <xsl:with-param name="whole" select="$whole"/>
        <xsl:with-param name="end" select="$end"/>
        <xsl:with-param name="first" select="$first + 1"/>
        <xsl:with-param name="last" select="$last"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <xsl:template match="f:present" mode="v6">
    <xsl:param name="alias"/>
    <xsl:value-of select="concat($alias, &quot;.v6address &lt;&gt; ''&quot;)"/>
  </xsl:template>

  <!-- Patterns compare the text, which stores keep in lower case; whole addresses compare the bits,
       too, so that every spelling finds them. -->
  <xsl:template match="f:address" mode="v6">
    <xsl:param name="alias"/>
    <xsl:call-template name="v6-match">
      <xsl:with-param name="alias" select="$alias"/>
      <xsl:with-param name="text" select="string()"/>
    </xsl:call-template>
  </xsl:template>

  <xsl:template name="v6-match">
    <xsl:param name="alias"/>
    <xsl:param name="text"/>
    <xsl:variable name="bits">
      <xsl:call-template name="v6-bits">
        <xsl:with-param name="address" select="$text"/>
      </xsl:call-template>
    </xsl:variable>
    <xsl:if test="$bits != ''">
      <xsl:value-of select="concat('( ', $alias, &quot;.v6addressbs = '&quot;, $bits, &quot;' OR &quot;)"/>
    </xsl:if>
    <xsl:call-template name="text-match">
      <xsl:with-param name="column" select="concat($alias, '.v6address')"/>
      <xsl:with-param name="text" select="translate($text, 'ABCDEF', 'abcdef')"/>
    </xsl:call-template>
    <xsl:if test="$bits != ''"> )</xsl:if>
  </xsl:template>

  <xsl:template match="f:prefix" mode="v6">
    <xsl:param name="alias"/>
    <xsl:variable name="bits">
      <xsl:call-template name="v6-bits">
        <xsl:with-param name="address" select="substring-before(normalize-space(), '/')"/>
      </xsl:call-template>
    </xsl:variable>
    <xsl:if test="$bits = ''">
      <xsl:call-template name="refuse">
        <xsl:with-param name="why" select="concat(normalize-space(), ' is no IPv6 prefix.')"/>
      </xsl:call-template>
    </xsl:if>
    <xsl:value-of select="concat($alias, &quot;.v6addressbs like '&quot;,
        substring($bits, 1, number(substring-after(normalize-space(), '/'))), &quot;%'&quot;)"/>
  </xsl:template>

  <!-- The 128 bits of an IPv6 address as "0" and "1"; nothing for a text that is none. -->
  <xsl:template name="v6-bits">
    <xsl:param name="address"/>
    <xsl:variable name="isShort" select="contains($address, '::')"/>
    <xsl:variable name="head">
      <xsl:choose>
        <xsl:when test="$isShort"><xsl:value-of select="substring-before($address, '::')"/></xsl:when>
        <xsl:otherwise><xsl:value-of select="$address"/></xsl:otherwise>
      </xsl:choose>
    </xsl:variable>
    <xsl:variable name="tail" select="substring-after($address, '::')"/>
    <xsl:if test="$address != '' and string-length($address) &lt; 40 and
        translate($address, '0123456789abcdefABCDEF:', '') = '' and not(contains($tail, '::'))">
      <xsl:variable name="front">
        <xsl:call-template name="v6-groups">
          <xsl:with-param name="groups" select="string($head)"/>
        </xsl:call-template>
      </xsl:variable>
      <xsl:variable name="back">
        <xsl:call-template name="v6-groups">
          <xsl:with-param name="groups" select="string($tail)"/>
        </xsl:call-template>
      </xsl:variable>
      <xsl:variable name="missing"
          select="128 - string-length($front) - string-length($back)"/>
      <xsl:variable name="zeros"
          select="'00000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000'"/>
      <xsl:if test="not(contains($front, 'x')) and not(contains($back, 'x')) and
          (($isShort and $missing &gt;= 16) or (not($isShort) and $missing = 0))">
        <xsl:value-of select="concat($front, substring($zeros, 1, $missing), $back)"/>
      </xsl:if>
    </xsl:if>
  </xsl:template>

  <!-- 16 bits for each group between colons, "x" for a group that is none. -->
  <xsl:template name="v6-groups">
    <xsl:param name="groups"/>
    <xsl:if test="$groups != ''">
      <xsl:variable name="group" select="substring-before(concat($groups, ':'), ':')"/>
      <xsl:choose>
        <xsl:when test="$group = '' or string-length($group) &gt; 4">x</xsl:when>
        <xsl:otherwise>
          <xsl:call-template name="nibbles">
            <xsl:with-param name="digits"
                select="concat(substring('000', string-length($group)), $group)"/>
          </xsl:call-template>
        </xsl:otherwise>
      </xsl:choose>
      <xsl:if test="contains($groups, ':')">
        <xsl:if test="substring-after($groups, ':') = ''">x</xsl:if>
        <xsl:call-template name="v6-groups">
          <xsl:with-param name="groups" select="substring-after($groups, ':')"/>
        </xsl:call-template>
      </xsl:if>
    </xsl:if>
  </xsl:template>

  <xsl:template name="nibbles">
    <xsl:param name="digits"/>
    <xsl:if test="$digits != ''">
      <xsl:variable name="digit"
          select="translate(substring($digits, 1, 1), 'ABCDEF', 'abcdef')"/>
      <xsl:value-of select="substring('0000000100100011010001010110011110001001101010111100110111101111',
          4 * string-length(substring-before('0123456789abcdef', $digit)) + 1, 4)"/>
      <xsl:call-template name="nibbles">
        <xsl:with-param name="digits" select="substring($digits, 2)"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <xsl:template match="f:DNSName" mode="test">
    <xsl:param name="alias"/>
    <xsl:choose>
      <xsl:when test="starts-with($alias, 'A')">
        <xsl:apply-templates select="*" mode="value">
          <xsl:with-param name="column" select="concat($alias, '.dnsname')"/>
        </xsl:apply-templates>
      </xsl:when>
      <xsl:otherwise>
        <xsl:variable name="owner">
          <xsl:if test="starts-with($alias, 'N')">node</xsl:if>
        </xsl:variable>
        <xsl:value-of select="concat($alias, '.objid in ( select A_.', $owner,
            'objid from address A_ where ')"/>
        <xsl:apply-templates select="*" mode="value">
          <xsl:with-param name="column" select="'A_.dnsname'"/>
        </xsl:apply-templates>
        <xsl:text> )</xsl:text>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- ===== Tests of objects of another kind ===== -->

  <xsl:template match="f:node" mode="test">
    <xsl:param name="alias"/>
    <xsl:value-of select="concat($alias, '.nodeobjid in ( select N_.objid from nwnode N_ where ')"/>
    <xsl:apply-templates select="f:operator">
      <xsl:with-param name="alias" select="'N_'"/>
    </xsl:apply-templates>
    <xsl:text> )</xsl:text>
  </xsl:template>

  <xsl:template match="f:interface" mode="test">
    <xsl:param name="alias"/>
    <xsl:variable name="owner">
      <xsl:if test="starts-with($alias, 'N')">node</xsl:if>
    </xsl:variable>
    <xsl:value-of select="concat($alias, '.objid in ( select I_.', $owner,
        'objid from nwinterface I_ where ')"/>
    <xsl:apply-templates select="f:operator">
      <xsl:with-param name="alias" select="'I_'"/>
    </xsl:apply-templates>
    <xsl:text> )</xsl:text>
  </xsl:template>

  <xsl:template match="f:address" mode="test">
    <xsl:param name="alias"/>
    <xsl:variable name="owner">
      <xsl:if test="starts-with($alias, 'N')">node</xsl:if>
    </xsl:variable>
    <xsl:value-of select="concat($alias, '.objid in ( select A_.', $owner,
        'objid from address A_ where ')"/>
    <xsl:apply-templates select="f:operator">
      <xsl:with-param name="alias" select="'A_'"/>
    </xsl:apply-templates>
    <xsl:text> )</xsl:text>
  </xsl:template>

  <!-- ===== Memberships ===== -->

  <!-- Each is a list of interfaces; a node is in where one of its interfaces is, an address where
       its owner is. But an address lies in a subnet and serves in a group by itself. -->
  <xsl:template match="f:VLAN | f:mesh | f:container | f:subnet | f:HSRP" mode="test">
    <xsl:param name="alias"/>
    <xsl:choose>
      <xsl:when test="starts-with($alias, 'N')">
        <xsl:value-of select="concat($alias,
            '.objid in ( select I_.nodeobjid from nwinterface I_ where I_.objid in ( ')"/>
        <xsl:apply-templates select="." mode="members"/>
        <xsl:text> ) )</xsl:text>
      </xsl:when>
      <xsl:when test="self::f:subnet and starts-with($alias, 'A')">
        <xsl:value-of select="concat($alias, '.subnetobjid in ( ')"/>
        <xsl:call-template name="entities"/>
        <xsl:text> )</xsl:text>
      </xsl:when>
      <xsl:otherwise>
        <xsl:variable name="isAddress" select="self::f:HSRP and starts-with($alias, 'A')"/>
        <xsl:value-of select="concat($alias, '.', substring('address', 1, 7 * $isAddress),
            substring('objid', 1 + 3 * $isAddress), ' in ( ')"/>
        <xsl:apply-templates select="." mode="members">
          <xsl:with-param name="isAddress" select="$isAddress"/>
        </xsl:apply-templates>
        <xsl:text> )</xsl:text>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="f:VLAN | f:mesh" mode="members">
    <xsl:text>select C_.containedobjid from containment C_ where C_.containertype = </xsl:text>
    <xsl:apply-templates select="." mode="entity-type"/>
    <xsl:if test="*">
      <xsl:text> AND C_.containerobjid in ( </xsl:text>
      <xsl:call-template name="entities"/>
      <xsl:text> )</xsl:text>
    </xsl:if>
  </xsl:template>

  <xsl:template match="f:subnet" mode="members">
    <xsl:text>select S_.objid from address S_ where S_.subnetobjid in ( </xsl:text>
    <xsl:call-template name="entities"/>
    <xsl:text> )</xsl:text>
  </xsl:template>

  <xsl:template match="f:container" mode="members">
    <xsl:text>select M_.interfaceobjid from nwifcctm M_ where M_.containerobjid in ( </xsl:text>
    <xsl:text>select G_.objid from nwifc G_</xsl:text>
    <xsl:call-template name="details">
      <xsl:with-param name="alias" select="'G_'"/>
      <xsl:with-param name="before" select="' where '"/>
    </xsl:call-template>
    <xsl:text> )</xsl:text>
  </xsl:template>

  <xsl:template match="f:HSRP" mode="members">
    <xsl:param name="isAddress" select="false()"/>
    <xsl:text>select H_.address</xsl:text>
    <xsl:choose>
      <xsl:when test="$isAddress">id</xsl:when>
      <xsl:otherwise>ifobjid</xsl:otherwise>
    </xsl:choose>
    <xsl:text> from hsrpaddress H_ where H_.objid in ( </xsl:text>
    <xsl:call-template name="entities"/>
    <xsl:text> )</xsl:text>
    <xsl:call-template name="details">
      <xsl:with-param name="alias" select="'H_'"/>
      <xsl:with-param name="tests" select="f:number | f:priority | f:hsrpState"/>
    </xsl:call-template>
  </xsl:template>

  <!-- The objects of the context's kind that its elements describe. -->
  <xsl:template name="entities">
    <xsl:text>select E_.objid from nwentity E_ where E_.entitytype = </xsl:text>
    <xsl:apply-templates select="." mode="entity-type"/>
    <xsl:call-template name="details">
      <xsl:with-param name="alias" select="'E_'"/>
      <xsl:with-param name="tests" select="f:name | f:objectID | self::f:VLAN/f:number"/>
    </xsl:call-template>
  </xsl:template>

  <xsl:template match="f:VLAN" mode="entity-type">4</xsl:template>
  <xsl:template match="f:subnet" mode="entity-type">7</xsl:template>
  <xsl:template match="f:mesh" mode="entity-type">10</xsl:template>
  <xsl:template match="f:HSRP" mode="entity-type">11</xsl:template>

  <xsl:template name="details">
    <xsl:param name="alias"/>
    <xsl:param name="tests" select="*"/>
    <xsl:param name="before" select="' AND '"/>
    <xsl:for-each select="$tests">
      <xsl:choose>
        <xsl:when test="position() = 1"><xsl:value-of select="$before"/></xsl:when>
        <xsl:otherwise> AND </xsl:otherwise>
      </xsl:choose>
      <xsl:text>( </xsl:text>
      <xsl:apply-templates select="." mode="test">
        <xsl:with-param name="alias" select="$alias"/>
      </xsl:apply-templates>
      <xsl:text> )</xsl:text>
    </xsl:for-each>
  </xsl:template>

  <xsl:template match="f:HSRP/f:number" mode="column">hsrpnumber</xsl:template>
  <xsl:template match="f:HSRP/f:priority" mode="column">hsrppriority</xsl:template>
  <xsl:template match="f:HSRP/f:hsrpState" mode="column">state</xsl:template>
  <xsl:template match="f:container/f:type" mode="column">ifctype</xsl:template>
  <xsl:template match="f:container/f:application" mode="column">appsid</xsl:template>
  <xsl:template match="f:userVariable/f:name" mode="column">varname</xsl:template>
  <xsl:template match="f:userVariable/f:text" mode="column">strval</xsl:template>
  <xsl:template match="f:userVariable/f:number" mode="column">intval</xsl:template>

  <!-- Stores keep the number of a VLAN in a user variable. -->
  <xsl:template match="f:VLAN/f:number" mode="test">
    <xsl:param name="alias"/>
    <xsl:value-of select="concat($alias, &quot;.objid in ( select U_.objid from userdefvar U_ where U_.varname = 'VlanId' AND ( &quot;)"/>
    <xsl:apply-templates select="*" mode="value">
      <xsl:with-param name="column" select="'U_.intval'"/>
    </xsl:apply-templates>
    <xsl:text> ) )</xsl:text>
  </xsl:template>

  <xsl:template match="f:userVariable" mode="test">
    <xsl:param name="alias"/>
    <xsl:value-of select="concat($alias, '.objid in ( select U_.objid from userdefvar U_')"/>
    <xsl:call-template name="details">
      <xsl:with-param name="alias" select="'U_'"/>
      <xsl:with-param name="before" select="' where '"/>
    </xsl:call-template>
    <xsl:text> )</xsl:text>
  </xsl:template>

  <!-- Layer-2 links to a node, whichever end is written first. -->
  <xsl:template match="f:neighbor" mode="test">
    <xsl:param name="alias"/>
    <xsl:variable name="column">
      <xsl:if test="starts-with($alias, 'N')">ifnode</xsl:if>
      <xsl:text>objid</xsl:text>
    </xsl:variable>
    <xsl:call-template name="linked">
      <xsl:with-param name="alias" select="$alias"/>
      <xsl:with-param name="near" select="concat('left', $column)"/>
      <xsl:with-param name="far" select="'right'"/>
    </xsl:call-template>
    <xsl:text> OR </xsl:text>
    <xsl:call-template name="linked">
      <xsl:with-param name="alias" select="$alias"/>
      <xsl:with-param name="near" select="concat('right', $column)"/>
      <xsl:with-param name="far" select="'left'"/>
    </xsl:call-template>
  </xsl:template>

  <xsl:template name="linked">
    <xsl:param name="alias"/>
    <xsl:param name="near"/>
    <xsl:param name="far"/>
    <xsl:value-of select="concat($alias, '.objid in ( select L_.', $near,
        ' from nwinterfaceasc L_ where L_.reltype = 1 AND L_.', $far,
        'ifnodeobjid in ( select O_.objid from nwnode O_')"/>
    <xsl:call-template name="details">
      <xsl:with-param name="alias" select="'O_'"/>
      <xsl:with-param name="before" select="' where '"/>
    </xsl:call-template>
    <xsl:text> ) )</xsl:text>
  </xsl:template>

  <!-- ===== Files of hosts ===== -->

  <!-- The file lies beside this one. It is read whole: a name that is cut by a comment would be
       another name to whoever has checked the file. -->
  <xsl:template match="f:HostIDFile" mode="test">
    <xsl:param name="alias"/>
    <xsl:if test="count(node()) != 1 or contains(., '/') or contains(., ':') or
        contains(., '%') or contains(., '\') or contains(., '#') or contains(., '?')">
      <xsl:call-template name="refuse">
        <xsl:with-param name="why" select="'HostIDFile takes the plain name of a file.'"/>
      </xsl:call-template>
    </xsl:if>
    <xsl:variable name="list" select="document(string())/f:hosts"/>
    <xsl:variable name="hosts" select="$list/*"/>
    <xsl:if test="not($hosts)">
      <xsl:call-template name="refuse">
        <xsl:with-param name="why" select="concat('the file ', ., ' lists no hosts.')"/>
      </xsl:call-template>
    </xsl:if>
    <!-- The same as its schema says, for a processor that has not validated the file. -->
    <xsl:if test="$list/text()[normalize-space() != ''] or $list/@*[namespace-uri() = ''] or
        $hosts[* or @*[namespace-uri() = ''] or string-length() &gt; 2000 or
        not(self::f:name or self::f:address or self::f:objectID)]">
      <xsl:call-template name="refuse">
        <xsl:with-param name="why" select="concat('the file ', ., ' is no valid list of hosts.')"/>
      </xsl:call-template>
    </xsl:if>
    <xsl:variable name="groups">
      <xsl:call-template name="host-list">
        <xsl:with-param name="column" select="concat($alias, '.entityname')"/>
        <xsl:with-param name="hosts"
            select="$hosts[self::f:name and not(contains(., '*')) and not(contains(., '?'))]"/>
      </xsl:call-template>
      <xsl:call-template name="host-list">
        <xsl:with-param name="column" select="concat($alias, '.objid')"/>
        <xsl:with-param name="hosts" select="$hosts[self::f:objectID]"/>
      </xsl:call-template>
      <xsl:call-template name="host-tree">
        <xsl:with-param name="alias" select="$alias"/>
        <xsl:with-param name="hosts"
            select="$hosts[self::f:name and (contains(., '*') or contains(., '?'))]"/>
      </xsl:call-template>
      <xsl:call-template name="host-tree">
        <xsl:with-param name="alias" select="$alias"/>
        <xsl:with-param name="hosts" select="$hosts[self::f:address]"/>
      </xsl:call-template>
    </xsl:variable>
    <xsl:value-of select="substring($groups, 5)"/>
  </xsl:template>

  <!-- " OR column in ( ... )", or nothing. -->
  <xsl:template name="host-list">
    <xsl:param name="column"/>
    <xsl:param name="hosts"/>
    <xsl:if test="$hosts">
      <xsl:value-of select="concat(' OR ', $column, ' in ( ')"/>
      <xsl:for-each select="$hosts">
        <xsl:if test="position() != 1"> , </xsl:if>
        <xsl:call-template name="literal">
          <xsl:with-param name="text" select="string()"/>
        </xsl:call-template>
      </xsl:for-each>
      <xsl:text> )</xsl:text>
    </xsl:if>
  </xsl:template>

  <!-- " OR ( test OR test ... )" as a tree that is flat enough for every engine, or nothing. -->
  <xsl:template name="host-tree">
    <xsl:param name="alias"/>
    <xsl:param name="hosts"/>
    <xsl:if test="$hosts">
      <xsl:text> OR </xsl:text>
      <xsl:call-template name="host-branch">
        <xsl:with-param name="alias" select="$alias"/>
        <xsl:with-param name="hosts" select="$hosts"/>
      </xsl:call-template>
    </xsl:if>
  </xsl:template>

  <xsl:template name="host-branch">
    <xsl:param name="alias"/>
    <xsl:param name="hosts"/>
    <xsl:variable name="half" select="floor(count($hosts) div 2)"/>
    <xsl:text>( </xsl:text>
    <xsl:choose>
      <xsl:when test="$half = 0">
        <xsl:apply-templates select="$hosts" mode="host">
          <xsl:with-param name="alias" select="$alias"/>
        </xsl:apply-templates>
      </xsl:when>
      <xsl:otherwise>
        <xsl:call-template name="host-branch">
          <xsl:with-param name="alias" select="$alias"/>
          <xsl:with-param name="hosts" select="$hosts[position() &lt;= $half]"/>
        </xsl:call-template>
        <xsl:text> OR </xsl:text>
        <xsl:call-template name="host-branch">
          <xsl:with-param name="alias" select="$alias"/>
          <xsl:with-param name="hosts" select="$hosts[position() &gt; $half]"/>
        </xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
    <xsl:text> )</xsl:text>
  </xsl:template>

  <xsl:template match="f:name" mode="host">
    <xsl:param name="alias"/>
    <xsl:call-template name="text-match">
      <xsl:with-param name="column" select="concat($alias, '.entityname')"/>
      <xsl:with-param name="text" select="string()"/>
    </xsl:call-template>
  </xsl:template>

  <xsl:template match="f:address" mode="host">
    <xsl:param name="alias"/>
    <xsl:value-of select="concat($alias, '.objid in ( select A_.nodeobjid from address A_ where ')"/>
    <xsl:choose>
      <xsl:when test="contains(., ':')">
        <xsl:call-template name="v6-match">
          <xsl:with-param name="alias" select="'A_'"/>
          <xsl:with-param name="text" select="string()"/>
        </xsl:call-template>
        <xsl:text> )</xsl:text>
      </xsl:when>
      <xsl:otherwise>
        <xsl:call-template name="text-match">
          <xsl:with-param name="column" select="'A_.pubv4address'"/>
          <xsl:with-param name="text" select="string()"/>
        </xsl:call-template>
        <xsl:text> ) OR </xsl:text>
        <xsl:call-template name="text-match">
          <xsl:with-param name="column" select="concat($alias, '.pubv4managementadd')"/>
          <xsl:with-param name="text" select="string()"/>
        </xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- ===== Texts ===== -->

  <!-- A pattern as a literal: "!" escapes what LIKE reads otherwise. -->
  <xsl:template name="like-literal">
    <xsl:param name="text"/>
    <xsl:variable name="escapes">
      <xsl:call-template name="replace">
        <xsl:with-param name="text" select="$text"/>
        <xsl:with-param name="what" select="'!'"/>
        <xsl:with-param name="by" select="'!!'"/>
      </xsl:call-template>
    </xsl:variable>
    <xsl:variable name="percents">
      <xsl:call-template name="replace">
        <xsl:with-param name="text" select="string($escapes)"/>
        <xsl:with-param name="what" select="'%'"/>
        <xsl:with-param name="by" select="'!%'"/>
      </xsl:call-template>
    </xsl:variable>
    <xsl:variable name="underscores">
      <xsl:call-template name="replace">
        <xsl:with-param name="text" select="string($percents)"/>
        <xsl:with-param name="what" select="'_'"/>
        <xsl:with-param name="by" select="'!_'"/>
      </xsl:call-template>
    </xsl:variable>
    <xsl:call-template name="literal">
      <xsl:with-param name="text" select="translate($underscores, '*?', '%_')"/>
    </xsl:call-template>
  </xsl:template>

  <!-- A text as an SQL literal. "#" would read as the beginning of a reference, and " IF." and its
       like as a column of another table: such a text is concatenated of literals without them. -->
  <xsl:template name="literal">
    <xsl:param name="text"/>
    <xsl:choose>
      <xsl:when test="contains($text, '#') or contains($text, ' IF.') or
          contains($text, ' NODE.') or contains($text, ' ADDR.')">
        <xsl:variable name="pieces">
          <xsl:call-template name="pieces">
            <xsl:with-param name="text" select="$text"/>
          </xsl:call-template>
        </xsl:variable>
        <xsl:value-of select="concat('( ', $pieces, ' )')"/>
      </xsl:when>
      <xsl:otherwise>
        <xsl:call-template name="plain-literal">
          <xsl:with-param name="text" select="$text"/>
        </xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="plain-literal">
    <xsl:param name="text"/>
    <xsl:choose>
      <xsl:when test="contains($text, &quot;'&quot;)">
        <xsl:variable name="doubled">
          <xsl:call-template name="replace">
            <xsl:with-param name="text" select="$text"/>
            <xsl:with-param name="what" select="&quot;'&quot;"/>
            <xsl:with-param name="by" select="&quot;''&quot;"/>
          </xsl:call-template>
        </xsl:variable>
        <xsl:value-of select="concat(&quot;'&quot;, $doubled, &quot;'&quot;)"/>
      </xsl:when>
      <xsl:otherwise>
        <xsl:value-of select="concat(&quot;'&quot;, $text, &quot;'&quot;)"/>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- A concatenation. Long texts are cut before a character of ASCII near "at", never within one
       that two units make, into a tree that is flat enough for every engine. -->
  <xsl:template name="pieces">
    <xsl:param name="text"/>
    <xsl:param name="at" select="ceiling(string-length($text) div 2)"/>
    <xsl:variable name="isSpecial" select="contains($text, '#') or contains($text, ' IF.') or
        contains($text, ' NODE.') or contains($text, ' ADDR.')"/>
    <xsl:choose>
      <xsl:when test="not($isSpecial)">
        <xsl:call-template name="plain-literal">
          <xsl:with-param name="text" select="$text"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:when test="string-length($text) &lt; 32 or $at &lt; 2">
        <xsl:call-template name="chain">
          <xsl:with-param name="text" select="$text"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:otherwise>
        <xsl:variable name="marked" select="translate(substring($text, $at), $ascii, $marks)"/>
        <xsl:variable name="cut" select="$at + string-length(substring-before($marked, 'x'))"/>
        <xsl:choose>
          <xsl:when test="contains($marked, 'x') and $cut &gt; 1">
            <xsl:variable name="left">
              <xsl:call-template name="pieces">
                <xsl:with-param name="text" select="substring($text, 1, $cut - 1)"/>
              </xsl:call-template>
            </xsl:variable>
            <xsl:variable name="right">
              <xsl:call-template name="pieces">
                <xsl:with-param name="text" select="substring($text, $cut)"/>
              </xsl:call-template>
            </xsl:variable>
            <xsl:value-of select="concat('( ', $left, ' ) || ( ', $right, ' )')"/>
          </xsl:when>
          <xsl:otherwise>
            <xsl:call-template name="pieces">
              <xsl:with-param name="text" select="$text"/>
              <xsl:with-param name="at" select="floor($at div 2)"/>
            </xsl:call-template>
          </xsl:otherwise>
        </xsl:choose>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- All characters of ASCII that XML has, and as many marks. -->
  <xsl:variable name="ascii">&#9;&#10;&#13; !"#$%&amp;'()*+,-./0123456789:;&lt;=&gt;?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\]^_`abcdefghijklmnopqrstuvwxyz{|}~</xsl:variable>
  <xsl:variable name="marks">xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx</xsl:variable>

  <xsl:template name="chain">
    <xsl:param name="text"/>
    <xsl:choose>
      <xsl:when test="contains($text, '#')">
        <xsl:call-template name="chain">
          <xsl:with-param name="text" select="substring-before($text, '#')"/>
        </xsl:call-template>
        <xsl:text> || chr( 35 ) || </xsl:text>
        <xsl:call-template name="chain">
          <xsl:with-param name="text" select="substring-after($text, '#')"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:when test="contains($text, ' IF.')">
        <xsl:call-template name="broken">
          <xsl:with-param name="text" select="$text"/>
          <xsl:with-param name="alias" select="' IF'"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:when test="contains($text, ' NODE.')">
        <xsl:call-template name="broken">
          <xsl:with-param name="text" select="$text"/>
          <xsl:with-param name="alias" select="' NODE'"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:when test="contains($text, ' ADDR.')">
        <xsl:call-template name="broken">
          <xsl:with-param name="text" select="$text"/>
          <xsl:with-param name="alias" select="' ADDR'"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:otherwise>
        <xsl:call-template name="plain-literal">
          <xsl:with-param name="text" select="$text"/>
        </xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- A text cut between an alias and its dot. -->
  <xsl:template name="broken">
    <xsl:param name="text"/>
    <xsl:param name="alias"/>
    <xsl:variable name="dotted" select="concat($alias, '.')"/>
    <xsl:call-template name="chain">
      <xsl:with-param name="text" select="concat(substring-before($text, $dotted), $alias)"/>
    </xsl:call-template>
    <xsl:text> || </xsl:text>
    <xsl:call-template name="chain">
      <xsl:with-param name="text" select="concat('.', substring-after($text, $dotted))"/>
    </xsl:call-template>
  </xsl:template>

  <!-- Replaces one character everywhere. -->
  <xsl:template name="replace">
    <xsl:param name="text"/>
    <xsl:param name="what"/>
    <xsl:param name="by"/>
    <xsl:variable name="length" select="string-length($text)"/>
    <xsl:choose>
      <xsl:when test="not(contains($text, $what))"><xsl:value-of select="$text"/></xsl:when>
      <xsl:when test="$length &lt; 32">
        <xsl:value-of select="concat(substring-before($text, $what), $by)"/>
        <xsl:call-template name="replace">
          <xsl:with-param name="text" select="substring-after($text, $what)"/>
          <xsl:with-param name="what" select="$what"/>
          <xsl:with-param name="by" select="$by"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:otherwise>
        <!-- Joined by concat: what grows piece by piece is copied with each of them. -->
        <xsl:variable name="half" select="floor($length div 2)"/>
        <xsl:variable name="left">
          <xsl:call-template name="replace">
            <xsl:with-param name="text" select="substring($text, 1, $half)"/>
            <xsl:with-param name="what" select="$what"/>
            <xsl:with-param name="by" select="$by"/>
          </xsl:call-template>
        </xsl:variable>
        <xsl:variable name="right">
          <xsl:call-template name="replace">
            <xsl:with-param name="text" select="substring($text, $half + 1)"/>
            <xsl:with-param name="what" select="$what"/>
            <xsl:with-param name="by" select="$by"/>
          </xsl:call-template>
        </xsl:variable>
        <xsl:value-of select="concat($left, $right)"/>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- ===== Times ===== -->

  <!-- Seconds since the epoch of YYYY-MM-DDThh:mm:ssZ. Years are counted from March on, so that
       the day of a leap year is the last. -->
  <xsl:template name="seconds">
    <xsl:param name="time"/>
    <xsl:variable name="month" select="number(substring($time, 6, 2))"/>
    <xsl:variable name="late" select="floor((14 - $month) div 12)"/>
    <xsl:variable name="year" select="number(substring($time, 1, 4)) - $late"/>
    <xsl:variable name="days" select="number(substring($time, 9, 2)) +
        floor((153 * ($month + 12 * $late - 3) + 2) div 5) + 365 * $year +
        floor($year div 4) - floor($year div 100) + floor($year div 400) - 719469"/>
    <xsl:value-of select="86400 * $days + 3600 * number(substring($time, 12, 2)) +
        60 * number(substring($time, 15, 2)) + number(substring($time, 18, 2))"/>
  </xsl:template>

</xsl:stylesheet>
